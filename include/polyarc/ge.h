/* polyarc Ge family: geometry primitives on single elements and points.
 *
 * Elements are LI_TAB_STRUCT records (a GE_LI_ELEM may be passed after a
 * cast, since only the leading geometric fields are read). Types 1 (line)
 * and 2 (move) are treated as lines, every other type as an arc: type 3
 * runs clockwise, type 4 counter-clockwise. For a line, mp holds the unit
 * normal n, rad the constant c of n.p = c, and ang_ap / ang_ep the
 * parameters t = p.d of the ends, with direction d = (-n.y, n.x).
 *
 * All comparisons use the process-wide tolerance tol (GeEpsiGetTol), read
 * afresh at every call. "At a point" means a squared distance below tol^2.
 * Arc range tests include both end angles. An arc whose ends coincide
 * within tol in x and in y is a full circle: every angle is in its range
 * (GeElemMpt alone treats it otherwise). An arc with rad < 0 reads as
 * records.h describes. None of these functions
 * allocates. A null pointer argument makes a function return PA_INVALID
 * (or 0 where it returns a code or a value) without writing anything. */
#ifndef POLYARC_GE_H
#define POLYARC_GE_H

#include "polyarc/records.h"

/* ---- Tolerance, evaluation and projection ----------------------------- */

/* Sets the process-wide tolerance (no check of the value) and returns the
 * previous one. The default is 5e-05. Not synchronised between threads. */
POLYARC_EXTERN double GeEpsiSetTol(double tol);

/* The current tolerance. */
POLYARC_EXTERN double GeEpsiGetTol(void);

/* Classifies a point that lies on e's carrier and snaps it to an end point.
 * pt    in/out: set to ep or ap when within tol of it (ep is tested first,
 *       so a degenerate element reports its end).
 * par   out: the point's parameter (line position, or polar angle about mp).
 * Returns GE_AT_START (1), GE_AT_END (2), GE_INSIDE (3, also anywhere on a
 * full circle), GE_BEFORE (4) or GE_BEYOND (5). A negative arc radius puts
 * the carrier point opposite its angle: the range is then tested with the
 * polar angle plus pi, the angles such an arc stores (par stays the polar
 * angle). */
POLYARC_EXTERN uint16_t GePointOn(const LI_TAB_STRUCT *e, GE_POINT *pt, double *par);

/* Is p on e? 0 not on it, 1 at ap, 2 at ep, 3 between them (anywhere on a
 * full circle). Across a line the band is 10 x tol wide on each side, along
 * it tol; across an arc tol from the circle of radius |rad|, and p's own
 * polar angle is tested against the range whatever the sign of rad. */
POLYARC_EXTERN uint16_t GePtOnElem(const LI_TAB_STRUCT *e, const GE_POINT *p);

/* GePtOnElem with a band of tol (not 10 x tol) across lines. */
POLYARC_EXTERN uint16_t GePtOnElemUniformDistEpsi(const LI_TAB_STRUCT *e, const GE_POINT *p);

/* Nearest point of the line segment to p. Within the segment's parameter
 * range: the foot and its distance, result 0. Within tol of the range (in
 * parameter): the end point and the distance to it, result 0. Otherwise
 * PA_NOT_ON (1) with both outputs zero. */
POLYARC_EXTERN uint16_t GePtOnLine(const GE_POINT *p, const LI_TAB_STRUCT *line, GE_POINT *nearest,
                                   double *dist);

/* Nearest point of the arc to p: the radial foot when p's angle is in the
 * range (always on a full circle), else the nearer end (ap on a tie, angle
 * output its stored angle).
 * dist receives | |p - mp| - rad | or the distance to that end. Returns 0
 * when GePtOnElem finds p on the arc, PA_NOT_ON otherwise. */
POLYARC_EXTERN uint16_t GePtOnArc(const GE_POINT *p, const LI_TAB_STRUCT *arc, double *dist,
                                  GE_POINT *nearest, double *angle);

/* Foot of p on e's carrier (whole line or whole circle; a negative radius
 * projects to the far side of the centre). Returns 0, or PA_IMPOSSIBLE
 * when p is within tol per axis of an arc's centre (foot (0, 0)). */
POLYARC_EXTERN uint16_t GeProjPtElem(const LI_TAB_STRUCT *e, const GE_POINT *p, GE_POINT *foot);

/* Side of p relative to e's travel: +1 left, -1 right, 0 within tol of the
 * carrier; dist receives the distance from the carrier. Returns 0, or
 * PA_NOT_ON (1) when p's angle is outside an arc's range (the side is
 * still given). Lines have no range, nor has a full circle. */
POLYARC_EXTERN uint16_t GePtElemSide(const LI_TAB_STRUCT *e, const GE_POINT *p, int32_t *side,
                                     double *dist);

/* Tangent at p in the direction of travel. For arcs the radial vector is
 * divided by the stored rad, so it is a unit vector only for p on the
 * circle. Returns 0, or PA_INVALID when p is within tol of an arc's
 * centre. */
POLYARC_EXTERN uint16_t GePtElemTan(const LI_TAB_STRUCT *e, const GE_POINT *p, GE_POINT *tangent);

/* Signed curvature: 0 for lines, 1/rad for type 4, -1/rad for type 3. */
POLYARC_EXTERN double GeKruem(const LI_TAB_STRUCT *e);

/* The point halfway along e. An arc with equal end angles (a full circle
 * included) has sweep 0, so its midpoint is its start: a full circle is
 * deliberately not halved. Returns 0. */
POLYARC_EXTERN uint16_t GeElemMpt(const LI_TAB_STRUCT *e, GE_POINT *mid);

/* Moves p radially onto the circle (left unchanged at the centre). Returns
 * the runtime's math error indicator, cleared first (0 in practice). */
POLYARC_EXTERN uint16_t GeNearOnCir(const GE_POINT *centre, double radius, GE_POINT *p);

/* Normal form of the line p1 -> p2: unit normal n = (dy, -dx)/L, constant
 * c = n.p1 and the parameters t1 = p1.d, t2 = p2.d of the ends, exactly the
 * values a line element stores. Returns 0, or PA_ZERO_LENGTH when p1 and
 * p2 are identical (nothing written). */
POLYARC_EXTERN uint16_t GeGeoLineToNf(const GE_POINT *p1, const GE_POINT *p2, GE_POINT *normal,
                                      double *c, double *t1, double *t2);

/* ---- Intersections ---------------------------------------------------- */

/* Crossing of the lines n1.p = c1 and n2.p = c2 (unit normals). Returns 0
 * with the point, or PA_PARALLEL (p not written) when |n1 x n2| < 5e-09, a
 * fixed limit independent of tol. */
POLYARC_EXTERN uint16_t GeIseLinLin(const GE_POINT *n1, double c1, const GE_POINT *n2, double c2,
                                    GE_POINT *p);

/* Points of the circle (centre, |radius|) on the line n.p = c, in the
 * line's direction of travel (p1 has the smaller parameter). With a the
 * centre's distance from the line, returns their number: 0 when
 * a >= r + tol; 1 (the foot of the centre) in the tangent band
 * r - tol <= a < r + tol or when the chord is no longer than tol; else 2
 * (0 if a math error was raised). Both points are zeroed first. */
POLYARC_EXTERN uint16_t GeIseCirLin(const GE_POINT *centre, double radius, const GE_POINT *n,
                                    double c, GE_POINT *p1, GE_POINT *p2);

/* Points of two circles (radii by absolute value); count and both points
 * are zeroed first. Touching within tol gives count 1 at the touching
 * point, tested in the order outer touch, circle 2 inside 1, circle 1
 * inside 2. Two crossings give count 2 with p1 left and p2 right of the
 * line c1 -> c2, or count 1 at the chord's midpoint when the chord is no
 * longer than tol; otherwise count 0. Returns 0 (the math error
 * indicator), or PA_CONCENTRIC when the centres are no farther than tol. */
POLYARC_EXTERN uint16_t GeIseCirCir(const GE_POINT *c1, double r1, const GE_POINT *c2, double r2,
                                    uint16_t *count, GE_POINT *p1, GE_POINT *p2);

/* Crossings of the carriers of e1 and e2 (lines, or full circles of arcs
 * with |rad| >= tol; smaller arcs meet nothing), classified on e1 and then
 * on e2 by GePointOn: par1/pos1 and par2/pos2 receive the parameter and the
 * position code on each. Snapping to e1's end comes first, so a crossing
 * at a shared vertex gets the vertex's coordinates. With a line the points
 * come in the line's direction. Returns the number of points (0, 1, 2);
 * i1 and i2 are written only as far as that number. */
POLYARC_EXTERN uint16_t GeCross(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2, IsectPoint *i1,
                                IsectPoint *i2);

/* Do two circles (radii by absolute value) cross properly? side and touch
 * are zeroed first. touch 2: centres within tol; touch 1: touching within
 * tol in any of the three ways, disjoint, nested, or a chord no longer
 * than tol; touch 0: two crossings, with side 1 when p lies right of (or
 * on) the line c1 -> c2, else 0. Returns the math error indicator (0). */
POLYARC_EXTERN uint16_t GeCirCirTest(const GE_POINT *c1, double r1, const GE_POINT *c2, double r2,
                                     const GE_POINT *p, uint16_t *side, uint16_t *touch);

/* The same for a circle and the line n.p = c, with a = the centre's
 * distance from the line: touch 1 when r - tol < a < r + tol (strict);
 * for a < r - tol a proper crossing (touch 0, side 1 when (p - centre) x n
 * < 0). A line that misses the circle leaves touch and side 0, unlike
 * GeCirCirTest. Returns the math error indicator (0). */
POLYARC_EXTERN uint16_t GeCirLinTest(const GE_POINT *centre, double radius, const GE_POINT *n,
                                     double c, const GE_POINT *p, uint16_t *side, uint16_t *touch);

/* GeCirCirTest or GeCirLinTest on the carriers of e1 and e2 with e1's end
 * point as the test point. Two lines: touch 2 when parallel (as in
 * GeIseLinLin), else touch and side 0. Returns the test's status (0). */
POLYARC_EXTERN uint16_t GeElemIsectTest(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2,
                                        uint16_t *side, uint16_t *touch);

/* Common tangents of two circles, radii taken with their signs: with inner
 * non-zero the two that separate the circles, else the two with both
 * circles on one side. Each tangent is n.p = k with unit normal n; c1 lies
 * at signed distance -r1 from both, c2 at -r2 (outer) or +r2 (inner).
 * Returns 0, or PA_IMPOSSIBLE (nothing written) when the centres are
 * closer than tol or no such tangent exists: |q| > 1 with q = (r1 + r2)/d
 * for inner and (r1 - r2)/d for outer tangents (q < -1 is refused as well
 * as q > 1). */
POLYARC_EXTERN uint16_t GeCirCirTan(const GE_POINT *c1, double r1, const GE_POINT *c2, double r2,
                                    int32_t inner, GE_POINT *n1, double *k1, GE_POINT *n2,
                                    double *k2);

/* ---- Distances -------------------------------------------------------- */

/* Nearest point of the line segment to p. With t = p.d in [ang_ap, ang_ep]
 * (inclusive): the foot, |c - n.p| and t. Otherwise the nearer end point
 * (ap on a tie) with its stored parameter and the distance to it.
 * Returns 0. */
POLYARC_EXTERN uint16_t GePtDrawDist(const GE_POINT *p, const LI_TAB_STRUCT *line, double *dist,
                                     GE_POINT *nearest, double *par);

/* Nearest point of the arc to p, as GePtOnArc without its on-arc test:
 * the radial foot with | |p - mp| - rad | and p's angle when the angle is
 * in the range (always on a full circle), else the nearer end (ap on a
 * tie) with its stored angle and the distance to it. Returns 0. */
POLYARC_EXTERN uint16_t GePtArcDist(const GE_POINT *p, const LI_TAB_STRUCT *arc, double *dist,
                                    GE_POINT *nearest, double *angle);

/* GePtDrawDist for type 1, GePtArcDist for every other type (a move is
 * measured the arc way). Returns 0. */
POLYARC_EXTERN uint16_t GePtElemDist(const LI_TAB_STRUCT *e, const GE_POINT *p, GE_POINT *nearest,
                                     double *dist);

/* Distance of two segments from their end points only: l1's ap and ep
 * against l2, then l2's ap and ep against l1 (GePtDrawDist); a later
 * candidate wins only when strictly nearer. Crossing segments are not
 * detected (their distance is not 0). p1/par1 lie on l1, p2/par2 on l2.
 * Returns 0. */
POLYARC_EXTERN uint16_t GeDrawDrawDist(const LI_TAB_STRUCT *l1, const LI_TAB_STRUCT *l2,
                                       double *dist, GE_POINT *p1, double *par1, GE_POINT *p2,
                                       double *par2);

/* Distance of a segment and an arc. The foot of the arc's centre on the
 * line and the arc point towards it form the answer, with distance
 * |c - n.mp| - rad, when the foot is within the segment (inclusive), its
 * angle within the arc (any angle of a full circle), the foot not within
 * tol per axis of the centre and
 * the centre farther than rad from the line (strict). Otherwise the best
 * of the end-point candidates (the line's ends against the arc, then the
 * arc's ends against the line), a later one only when strictly nearer.
 * Returns 0. */
POLYARC_EXTERN uint16_t GeDrawArcDist(const LI_TAB_STRUCT *line, const LI_TAB_STRUCT *arc,
                                      double *dist, GE_POINT *pl, double *parl, GE_POINT *pa,
                                      double *anga);

/* Distance of two arcs: the points of both circles on the centre line,
 * with |mp1 - mp2| - rad1 - rad2, when each lies within its arc (a full
 * circle holds both), the
 * centres differ by tol or more in x or y and that distance is > 0; else
 * the end-point candidates as in GeDrawArcDist (overlapping or nested
 * circles always take them). Returns 0. */
POLYARC_EXTERN uint16_t GeArcArcDist(const LI_TAB_STRUCT *a1, const LI_TAB_STRUCT *a2, double *dist,
                                     GE_POINT *p1, double *ang1, GE_POINT *p2, double *ang2);

/* Bounding box of the arc about centre through p1 and p2. With clockwise
 * non-zero the arc runs clockwise from p1 to p2; with 0 it runs
 * counter-clockwise, and p1 and p2 are exchanged in place so that it runs
 * clockwise from the new p1 to the new p2. Identical end points give the
 * box of that point. Writes *min and *max and returns max. */
POLYARC_EXTERN GE_POINT *GeArcRect(const GE_POINT *centre, double radius, int32_t clockwise,
                                   GE_POINT *p1, GE_POINT *p2, GE_POINT *min, GE_POINT *max);

/* ---- Arc construction and arc-to-lines -------------------------------- */

/* Can p1, p2, p3 define an arc? With a = p1 - p3 and b = p1 - p2: returns
 * PA_DEGENERATE when |a.x b.x - a.y b.y| < tol (a mixed product, which
 * sends such points to the full circle of GeArcRound), PA_IMPOSSIBLE when
 * |a.y| < tol or |a x b| < tol, else 0. */
POLYARC_EXTERN uint16_t GeArc3PointCheck(const GE_POINT *p1, const GE_POINT *p2,
                                         const GE_POINT *p3);

/* Full circle: centre (p1 + p2)/2, radius |p1 - p3|/2, sense LI_CIRCLE_CW
 * (19); with p2 = p3 the circle on the diameter p1-p2. Returns 0, or, when
 * p1 and p3 agree per axis within tol, PA_DEGENERATE if p2 does too and
 * PA_IMPOSSIBLE if not (nothing written). */
POLYARC_EXTERN uint16_t GeArcRound(const GE_POINT *p1, const GE_POINT *p2, const GE_POINT *p3,
                                   GE_POINT *centre, double *radius, uint16_t *sense);

/* Arc from p1 through p2 to p3. When GeArc3PointCheck gives PA_IMPOSSIBLE,
 * p2 and p3 are exchanged in place (the exchange stays) and checked again.
 * Passing points give the circle of GeCirByPtPtPt and its status, with
 * sense 4 (counter-clockwise) or 3 for the travel in the order passed in;
 * PA_DEGENERATE gives GeArcRound and its status; other codes return as
 * they are. */
POLYARC_EXTERN uint16_t GeArc3Points(const GE_POINT *p1, GE_POINT *p2, GE_POINT *p3,
                                     GE_POINT *centre, double *radius, uint16_t *sense);

/* Circle through three points in one plane z = p1.z: centre (z = p1.z),
 * radius and sense 4 when (p2 - p1) x (p3 - p1) > 0, else 3. Returns 0,
 * PA_INVALID when p2 or p3 is tol or more off p1's z, or the status of
 * GeCirByPtPtPt. */
POLYARC_EXTERN uint16_t GeArcBy3Points(const GE_POINT3 *p1, const GE_POINT3 *p2,
                                       const GE_POINT3 *p3, GE_POINT3 *centre, double *radius,
                                       uint16_t *sense);

/* Arc that leaves p2 along the direction p1 -> p2 and ends at p3: centre
 * (z = p1.z), radius, and sense 4 when (p2 - p1) x (p3 - p2) > 0, else 3.
 * Returns 0, PA_INVALID when the points are not in one plane z = p1.z
 * within tol, or the status of GeLineByPtPt or GeCirByPtOnLinPt. */
POLYARC_EXTERN uint16_t GeArcByTang(const GE_POINT3 *p1, const GE_POINT3 *p2, const GE_POINT3 *p3,
                                    GE_POINT3 *centre, double *radius, uint16_t *sense);

/* Arc about centre from start: radius |start - centre| in the plane, and
 * end moved radially onto that circle (its z kept; an end exactly at the
 * centre stays where it is). Returns 0, or PA_INVALID when start or end is
 * tol or more off the centre's z (nothing written). */
POLYARC_EXTERN uint16_t GeArcByCenter(const GE_POINT3 *centre, const GE_POINT3 *start,
                                      GE_POINT3 *end, double *radius);

/* Segments needed so that no chord of an arc of the given sweep (radians,
 * either sign) and radius deviates from it by more than chord_tol:
 * trunc(|sweep| / 2 / h) + 1 with h = acos((r - e)/r), h at least 0.05
 * degrees (also for a negative chord_tol). 1 when radius <= chord_tol or
 * the sweep is NaN; capped at UINT32_MAX. */
POLYARC_EXTERN uint32_t GeArcToLinesCalcSeg(double sweep, double radius, double chord_tol);

/* n evenly spaced points of the arc about centre from start to end,
 * clockwise for sense 3 and 19, counter-clockwise for 4 and 20 (19 and 20
 * a full turn from start). Inner points take start's z; the last point is
 * end exactly. Returns the process-wide polyline buffer, valid until the
 * next arc-to-lines or line-split call (never free it), or null when
 * n < 2 or the buffer cannot grow. Not for concurrent use. */
POLYARC_EXTERN GE_POINT3 *GeArcToLinesSplit(const GE_POINT3 *start, const GE_POINT3 *end,
                                            const GE_POINT3 *centre, uint16_t sense, uint32_t n);

/* As GeArcToLinesSplit with the signed angle step between points given
 * (positive counter-clockwise); each point is the previous one rotated by
 * it about centre, the last is end. Same buffer and null cases. */
POLYARC_EXTERN GE_POINT3 *GeArcToLinesSplitTw(const GE_POINT3 *start, const GE_POINT3 *end,
                                              const GE_POINT3 *centre, uint32_t n, double step);

/* n evenly spaced points from start to end (x, y and z) in the polyline
 * buffer; with n = 1 only the end point. *out receives the buffer. Returns
 * 0, the memory service's status when the buffer cannot grow, or
 * PA_INVALID for n < 1 (*out null in both failure cases). */
POLYARC_EXTERN uint16_t GeArcSplitLine(const GE_POINT3 *start, const GE_POINT3 *end,
                                       GE_POINT3 **out, int32_t n);

/* Does nothing and returns 0; kept for callers that still link to it. */
POLYARC_EXTERN uint16_t GeArc3DAng(void);

/* ---- Construction services -------------------------------------------- */

/* Circle through three points: centre and radius. Returns 0, or
 * PA_IMPOSSIBLE (nothing written) when two points agree per axis within
 * tol or the three are collinear within tol (the triangle's height over
 * its longest side is below tol). */
POLYARC_EXTERN uint16_t GeCirByPtPtPt(const GE_POINT *p1, const GE_POINT *p2, const GE_POINT *p3,
                                      GE_POINT *centre, double *radius);

/* Line through p1 and p2 in normal form n.p = c, n the unit normal to the
 * right of the direction p1 -> p2 (as a line element stores it). Returns
 * 0, or PA_ZERO_LENGTH when the points agree per axis within tol. */
POLYARC_EXTERN uint16_t GeLineByPtPt(const GE_POINT *p1, const GE_POINT *p2, GE_POINT *normal,
                                     double *c);

/* Circle that touches the line n.p = c (unit normal) at p and passes
 * through q: centre on the normal through p, radius >= 0. Returns 0;
 * PA_INVALID when p is tol or more off the line; PA_IMPOSSIBLE when q is
 * within tol of the line (measured across it), including q = p. */
POLYARC_EXTERN uint16_t GeCirByPtOnLinPt(const GE_POINT *p, const GE_POINT *normal, double c,
                                         const GE_POINT *q, GE_POINT *centre, double *radius);

/* Area between an arc and its chord, >= 0: r^2 (theta - sin theta) / 2 for
 * the sweep theta from ap to ep about centre, clockwise for type 3 and
 * counter-clockwise for any other type. Ends that agree per axis within tol
 * are a full turn (pi r^2). Null points give 0. */
POLYARC_EXTERN double GeArcArea(const GE_POINT *ap, const GE_POINT *ep, const GE_POINT *centre,
                                double radius, uint16_t type);

/* ---- Tangency, parallelism and identity ------------------------------- */

/* Do the carriers touch? Two arcs: GeIseCirCir gives count 1, or
 * PA_CONCENTRIC (concentric circles touch whatever their radii). Arc and
 * line: GeIseCirLin gives one point. Two lines (or moves): all four end
 * points lie within tol of the other's carrier, so collinear lines touch
 * even apart. Returns 1 or 0. */
POLYARC_EXTERN uint16_t GeTestTang(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2);

/* Which way two touching elements part. With k = 0 for lines, +1/rad for
 * type 3 and -1/rad for type 4 (the opposite sign of GeKruem),
 * s = k1 + k2 when sum is non-zero, else k1 - k2; *side = 65535 (-1) when
 * s < -tol, 1 when s > tol, else 0 (a curvature compared with the length
 * tolerance). Returns 0, or PA_IMPOSSIBLE (side 0) when GeTestTang gives
 * 0. */
POLYARC_EXTERN uint16_t GeTanSide(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2, uint16_t *side,
                                  int32_t sum);

/* Parallel or concentric? 2 with the same sense of travel, 65535 with
 * opposite senses (normals' dot beyond +-0.999999995 for two type-1 lines;
 * centres within tol per axis and equal or different types for two arcs),
 * 1 for a point-like case (a degenerate line against a line, or a line
 * whose both ends lie at the other element's centre, which for a move
 * against a line is its stored normal), else 0. */
POLYARC_EXTERN uint16_t GeElemTestParallel(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2);

/* Do e1 and e2 share a carrier and a stretch of it? *code: 1 different
 * carriers or an unsupported pair (moves never take part); 2 the same
 * carrier (arcs: centres within tol per axis and radii within tol; lines:
 * |n1 x n2| < tol / the longer length and e2's start within tol of e1's
 * carrier) without a common stretch; 3 a common stretch longer than tol,
 * from *p1 to *p2 in e1's sense (for lines clipped to e1; for arcs e2's
 * own ends on e1's circle). A full circle holds every angle, and as e2 it
 * covers a full turn (its stretch runs once round, from its start back to
 * it). *opposite: 1 when the senses are opposite.
 * Outputs are (0, 0), 0 and 1 unless set. */
POLYARC_EXTERN void GeIdentElem(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2, uint16_t *code,
                                uint32_t *opposite, GE_POINT *p1, GE_POINT *p2);

#endif /* POLYARC_GE_H */
