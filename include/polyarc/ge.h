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
 * Arc range tests include both end angles. None of these functions
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
 * the carrier point opposite its angle. */
POLYARC_EXTERN uint16_t GePointOn(const LI_TAB_STRUCT *e, GE_POINT *pt, double *par);

/* Is p on e? 0 not on it, 1 at ap, 2 at ep, 3 between them. Across a line
 * the band is 10 x tol wide on each side, along it tol; across an arc tol
 * from the circle of radius |rad|. */
POLYARC_EXTERN uint16_t GePtOnElem(const LI_TAB_STRUCT *e, const GE_POINT *p);

/* GePtOnElem with a band of tol (not 10 x tol) across lines. */
POLYARC_EXTERN uint16_t GePtOnElemUniformDistEpsi(const LI_TAB_STRUCT *e, const GE_POINT *p);

/* Nearest point of the line segment to p. Within the segment's parameter
 * range: the foot and its distance, result 0. Within tol of the range (in
 * parameter): the end point and the distance to it, result 0. Otherwise
 * PA_NOT_ON (1) with both outputs zero. */
POLYARC_EXTERN uint16_t GePtOnLine(const GE_POINT *p, const LI_TAB_STRUCT *line,
                                   GE_POINT *nearest, double *dist);

/* Nearest point of the arc to p: the radial foot when p's angle is in the
 * range, else the nearer end (ap on a tie, angle output its stored angle).
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
 * still given). Lines have no range. */
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
 * included) has sweep 0, so its midpoint is its start. Returns 0. */
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

/* ---- Distances -------------------------------------------------------- */

/* Bounding box of the arc about centre through p1 and p2. With clockwise
 * non-zero the arc runs clockwise from p1 to p2; with 0 it runs
 * counter-clockwise, and p1 and p2 are exchanged in place so that it runs
 * clockwise from the new p1 to the new p2. Identical end points give the
 * box of that point. Writes *min and *max and returns max. */
POLYARC_EXTERN GE_POINT *GeArcRect(const GE_POINT *centre, double radius, int32_t clockwise,
                                   GE_POINT *p1, GE_POINT *p2, GE_POINT *min, GE_POINT *max);

#endif /* POLYARC_GE_H */
