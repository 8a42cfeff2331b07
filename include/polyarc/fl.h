/* polyarc Fl family: crossings of contours, Boolean operations,
 * convexity, side tests, and contour offsets (parallel, conic, by a
 * rectangle), limits and rotation.
 *
 * Crossing lists (GE_CROSS *) and contour lists (LI_TAB_STRUCT **) are
 * arrays from the memory-block service addressed by their last index,
 * FL_EMPTY (-1) while empty (see records.h). The caller frees them with
 * FlFreeCross and FlFreeList.
 *
 * The crossing pipeline runs in this order: a list (FlCrossList or
 * FlCrossListSingle), the cuts at the crossings (FlSplitCross), the
 * snapping of element ends (FlCrossSetPt), the classification
 * (FlSetIdentDel, FlCheckCross or FlCheckCrossSingle), the rewiring into
 * loops (FlCrossLink), the choice of loops (FlCheckList,
 * FlCrossKonturCleanClosed), and FlFreeCross. FlCrossKonturClosed,
 * FlCrossKonturSingle and FlCleanKont run it whole.
 *
 * Sides are +1 (left of the direction of travel) and -1 (right), stored as
 * 65535 in unsigned 16-bit arguments; 0 means none. A null pointer argument
 * gives PA_INVALID (or 0 where a function returns a value) unless a
 * function says otherwise. */
#ifndef POLYARC_FL_H
#define POLYARC_FL_H

#include "polyarc/records.h"

/* ---- Crossing lists --------------------------------------------------- */

/* Builds the crossing list of contours a and b (of a with itself when b is
 * null or a): every point where an element of a meets an element of b and
 * that lies on both (position codes GE_AT_START .. GE_INSIDE), found by
 * GeCross for each pair whose boxes overlap, a's box widened by 10 x tol
 * (touching boxes overlap). Moves never take part. Entries follow a's
 * elements in chain order from a and, on one element, its direction of
 * travel; entries at one point are adjacent. Two consecutive elements
 * meeting at their own joint, and the same point reached again through
 * a neighbouring element of b, are left out. For two contours a crossing
 * at a's closing joint is found at a's last and first element and the
 * repeat at the end of the list is dropped; a self list keeps both.
 * *list must be null (or a block of the memory service, which is reused);
 * the caller owns it afterwards, whatever the status, and frees it with
 * FlFreeCross. *last receives the last index (FL_EMPTY when none).
 * Returns 0; PA_LIST_FULL when more than 32752 entries (2047 steps of
 * FL_CROSS_STEP) would be needed; PA_NO_MEMORY when the list or the search
 * cannot get memory; PA_INVALID for a null list or last. On failure the
 * list keeps the entries made so far. A null a gives 0 and an empty list.
 * The contours are not changed. The pairs come from a spatial index over
 * b's element boxes, in b's chain order for each element of a, so the
 * list is that of comparing every pair in time about n log n plus the
 * pairs whose boxes meet; entering a crossing scans the entries of its
 * element of a unless it lies beyond all of them, so many crossings on
 * one element cost their number squared when they come against its
 * direction. */
POLYARC_EXTERN uint16_t FlCrossList(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b, GE_CROSS **list,
                                    int16_t *last);

/* The self-crossings of contour k, as FlCrossList(k, null) when n <= 0.
 * With n > 0 each element a is crossed with a window of the chain: it
 * starts up to n elements before a (walking back only over joined
 * elements) and holds up to 2n + 1 elements, ending after the first
 * element that a gap follows. On a contour shorter than the window an
 * element is met more than once. Statuses and ownership as for
 * FlCrossList; a null k gives 0 and an empty list. */
POLYARC_EXTERN uint16_t FlCrossListSingle(LI_TAB_STRUCT *k, GE_CROSS **list, int16_t *last,
                                          int16_t n);

/* Enters the crossing pt of elem_a and elem_b (as GeCross delivers it,
 * with elem_a first) in the list *list of *capacity entries, whose last
 * index is *last. It goes before the first entry from index first on
 * (the first entry of elem_a) that lies at the same point (within tol per
 * axis) or farther along elem_a by more than tol (on an arc measured in
 * its sense of travel from its start angle). Left out (result 0): the
 * joint of two consecutive elements of one contour (elem_a after elem_b
 * with pt at elem_a's start and elem_b's end, or the reverse); a point
 * equal to the entry before it whose elem_b is elem_b or its neighbour;
 * a point equal to the entry at its place whose elem_b is a neighbour of
 * elem_b (not elem_b itself: the two checks differ on purpose). The list
 * grows by FL_CROSS_STEP entries through the memory service. Returns 0,
 * PA_LIST_FULL past FL_CROSS_MAX, the memory service's status, or
 * PA_INVALID for null arguments; on failure nothing changes. */
POLYARC_EXTERN uint16_t FlNewCross(GE_CROSS **list, uint16_t *capacity, int16_t *last,
                                   int16_t first, const IsectPoint *pt, LI_TAB_STRUCT *elem_a,
                                   LI_TAB_STRUCT *elem_b);

/* Finds the element that carries p, walking backwards from start through
 * prev (start first) once round the chain: a line within 10 x tol across
 * its carrier and within its ends (tol beyond them only at the end
 * points), an arc within tol of its circle and in its angle range (every
 * angle when its ends coincide or its end angles are equal). A point at
 * the found element's start belongs to its predecessor when that carries
 * it too. Returns 0 with *out, or PA_IMPOSSIBLE when start is null or no
 * element carries p (*out is then start). */
POLYARC_EXTERN uint16_t FlSeekPt(LI_TAB_STRUCT *start, const GE_POINT *p, LI_TAB_STRUCT **out);

/* Cuts both contours at every crossing of a list from FlCrossList or
 * FlCrossListSingle, with LiElemTeilen on the piece FlSeekPt finds from
 * elem_a (elem_b), so that each crossing lies at a joint: elem_a / elem_b
 * become the elements that end at pt, and next_a / next_b their
 * successors. An entry at an element's start is first moved to its
 * predecessor. A real cut sets loc_a (loc_b) to GE_AT_END and bit 1 (bit
 * 2) of *flags, which is cleared first. *a and *b hold the contours'
 * first elements and follow when a first element is cut; b may be null
 * for a self list whose first element is tracked through a alone. New
 * records come from head and belong to the contours. Returns 0, the
 * status of FlSeekPt (PA_IMPOSSIBLE) or of LiElemTeilen (PA_NO_RECORD, or
 * PA_ZERO_RADIUS after cutting an arc of radius below tol), stopping at
 * the first failure with the entries before it cut; PA_INVALID for null
 * arguments. FlSeekPt walks back over the pieces already cut from an
 * element, so the cuts of one element cost their number squared when its
 * crossings come in the list against its direction. */
POLYARC_EXTERN uint16_t FlSplitCross(LI_HEAD *head, GE_CROSS *list, int16_t last, uint32_t *flags,
                                     LI_TAB_STRUCT **a, LI_TAB_STRUCT **b);

/* Frees a crossing list and sets *list to null; a null *list only stays
 * null. */
POLYARC_EXTERN void FlFreeCross(GE_CROSS **list);

/* Gives every contour of entries 0..last back to head (LiRemove), frees
 * the contour list and sets *list to null. A null *list only stays null;
 * with a null head the array is freed and its contours are not given
 * back. */
POLYARC_EXTERN void FlFreeList(LI_HEAD *head, LI_TAB_STRUCT ***list, int16_t last);

/* ---- Crossing classification ------------------------------------------ */

/* Classifies one crossing (after FlSplitCross) from the tangents of the
 * four elements that meet there: mode, side and rev (see GE_CROSS).
 * Returns 0, the status of GePtElemTan, or PA_IMPOSSIBLE when A folds back
 * on itself with no side (the crossing is then void). */
POLYARC_EXTERN uint16_t FlSetModeSideRev(GE_CROSS *cross);

/* Classifies every unclassified entry and voids later entries that repeat
 * it (same four elements, same point). Returns the first failure. */
POLYARC_EXTERN uint16_t FlSetIdentDel(GE_CROSS *list, int16_t last);

/* Voids the mirrored twin (b x a) of every entry of a self-crossing list;
 * with flag 0 only twins of proper crossings (mode 0). */
POLYARC_EXTERN void FlRemIdentInv(GE_CROSS *list, int16_t last, uint32_t flag);

/* Resolves overlaps of a two-contour list for the operation op
 * (FL_OP_*): a stretch where B runs along A and returns to its side is
 * voided; one that passes to the other side keeps one end. Returns 0. */
POLYARC_EXTERN uint16_t FlCheckCross(GE_CROSS *list, int16_t last, int32_t op);

/* Resolves overlaps of a self-crossing list. Returns 0. */
POLYARC_EXTERN uint16_t FlCheckCrossSingle(GE_CROSS *list, int16_t last);

/* Moves the element ends at every crossing exactly onto its point.
 * Returns 0 or the first failing status of LiRadKorr / LiElemExpand. */
POLYARC_EXTERN uint16_t FlCrossSetPt(GE_CROSS *list, int16_t last);

/* Rewires the contours at every crossing that is not void into closed
 * loops. The crossing list's storage becomes the contour list *loops (one
 * entry per loop), *list becomes null; with no usable crossing *loops is
 * null, *loops_last FL_EMPTY and the list is left as it was. */
POLYARC_EXTERN void FlCrossLink(GE_CROSS **list, int16_t *last, LI_TAB_STRUCT ***loops,
                                int16_t *loops_last);

/* Keeps loops of a contour list by the sign of their area (1, 0 or 65535
 * for -1) and the selection code select (4, 5, 6, other); see the
 * documentation of the selection codes. Removed loops go back to the store;
 * *extra receives the loop taken out by code 4. Returns 0. */
POLYARC_EXTERN uint16_t FlCheckList(LI_HEAD *head, LI_TAB_STRUCT **loops, int16_t *last,
                                    uint16_t sign, uint16_t select, LI_TAB_STRUCT **extra);

/* ---- Result contour assembly ------------------------------------------ */

/* Cuts two closed contours at their crossings and rewires them into loops
 * for the operation op. When loops result, *a and *b become null (their
 * elements are in the loops of *loops). *flags as for FlSplitCross.
 * Returns the first failing status of the steps. */
POLYARC_EXTERN uint16_t FlCrossKonturClosed(LI_HEAD *head, LI_TAB_STRUCT **a, LI_TAB_STRUCT **b,
                                            int32_t op, uint32_t *flags, LI_TAB_STRUCT ***loops,
                                            int16_t *last);

/* Keeps the loops that the operation op wants, given the absolute areas of
 * its inputs. Returns 0, PA_INVALID for a single loop or two outer loops
 * of a union, PA_IMPOSSIBLE for an empty list or no fitting loop. */
POLYARC_EXTERN uint16_t FlCrossKonturCleanClosed(LI_HEAD *head, double area_a, double area_b,
                                                 uint32_t op, LI_TAB_STRUCT **loops,
                                                 int16_t *last);

/* Cuts one contour at its self-crossings and rewires it into loops; *k
 * becomes null when loops result. n as for FlCrossListSingle. */
POLYARC_EXTERN uint16_t FlCrossKonturSingle(LI_HEAD *head, LI_TAB_STRUCT **k,
                                            LI_TAB_STRUCT ***loops, int16_t *last, uint16_t n);

/* Cleans one contour of self-crossings, keeping loops of the wanted area
 * sign; mode 2, 3 or other selects how (see the documentation of the
 * cleaning modes). *no_cross receives 1 when nothing crossed. */
POLYARC_EXTERN uint16_t FlCleanKont(LI_HEAD *head, LI_TAB_STRUCT **k, int16_t sign, uint16_t mode,
                                    LI_TAB_STRUCT **out, LI_TAB_STRUCT ***loops, int16_t *last,
                                    uint32_t *no_cross, uint16_t n, int32_t rem_short);

/* ---- Boolean operations ----------------------------------------------- */

/* Union, difference (a - b) and intersection of two closed contours,
 * computed on copies (a and b are never changed). Elements shorter than
 * short_len are removed from the copies (keep 0 flattens arcs as well).
 * See the documentation of the result: status, then *no_cross, then
 * either *loops (0..*last) or *contain. */
POLYARC_EXTERN uint16_t FlUnionKont(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
                                    double short_len, int32_t keep, LI_TAB_STRUCT ***loops,
                                    int16_t *last, uint32_t *no_cross, int16_t *contain);
POLYARC_EXTERN uint16_t FlDiffKont(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
                                   double short_len, int32_t keep, LI_TAB_STRUCT ***loops,
                                   int16_t *last, uint32_t *no_cross, int16_t *contain);
POLYARC_EXTERN uint16_t FlIsectKont(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
                                    double short_len, int32_t keep, LI_TAB_STRUCT ***loops,
                                    int16_t *last, uint32_t *no_cross, int16_t *contain);

/* Joins two contours along the stretches they share (at most 100). The
 * caller supplies the contour list loops with room for capacity + 1
 * entries. */
POLYARC_EXTERN uint16_t FlUnionIdent(LI_HEAD *head, LI_TAB_STRUCT *k1, LI_TAB_STRUCT *k2,
                                     uint32_t sign, LI_TAB_STRUCT **out, LI_TAB_STRUCT **out2,
                                     LI_TAB_STRUCT **loops, uint16_t capacity, int16_t *last);

/* Removes spikes where the contour runs forward and straight back. */
POLYARC_EXTERN uint16_t FlCleanIdent(LI_HEAD *head, LI_TAB_STRUCT **k, uint32_t whole);

/* ---- Convexity -------------------------------------------------------- */

/* *convex receives 0 when the joint from e to its successor f turns
 * against the orientation (1 counter-clockwise, -1 clockwise), else 1.
 * Returns 0. */
POLYARC_EXTERN uint16_t FlTestKonvex(const LI_TAB_STRUCT *e, const LI_TAB_STRUCT *f, int16_t orient,
                                     uint32_t *convex);

/* Turns every arc that bulges inwards for the orientation into its chord;
 * *changed receives 1 when one did. Returns 0 or the status of
 * LiElemExpand. */
POLYARC_EXTERN uint16_t FlRemBogKonk(LI_TAB_STRUCT *k, uint16_t orient, uint32_t *changed);

/* The common outer tangent of e and f, each taken as its circle or as its
 * outer end point: its touching points in *t1 and *t2. Returns 0,
 * PA_IMPOSSIBLE, or the status of GeCirCirTan. */
POLYARC_EXTERN uint16_t FlKonnKonvex(const LI_TAB_STRUCT *e, const LI_TAB_STRUCT *f,
                                     int32_t e_circle, int32_t f_circle, GE_POINT *t1,
                                     GE_POINT *t2);

/* Tries FlKonnKonvex with the circles and end points of e and f in turn.
 * Returns 0, or PA_IMPOSSIBLE when no tangent fits. */
POLYARC_EXTERN int16_t FlSeekKon(const LI_TAB_STRUCT *e, const LI_TAB_STRUCT *f, GE_POINT *t1,
                                 GE_POINT *t2);

/* Bridges the concave joint between e and its successor along their common
 * outer tangent. Returns 0, PA_IMPOSSIBLE (nothing changed), PA_NO_MEMORY,
 * or the status of LiElemExpand. */
POLYARC_EXTERN uint16_t FlRemKonkav(LI_HEAD *head, LI_TAB_STRUCT **k, LI_TAB_STRUCT *e);

/* ---- Side, parallel and conic tests ----------------------------------- */

/* The way e2 turns off e1 at a common point, given their unit tangents
 * there: 1, -1 or 0. The first argument is ignored. */
POLYARC_EXTERN int16_t FlTangSide(const void *unused, const LI_TAB_STRUCT *e1, const GE_POINT *t1,
                                  const LI_TAB_STRUCT *e2, const GE_POINT *t2, int32_t swap);

/* 1 when e1 and e2 lie on the same carrier, else 0. The first argument is
 * ignored. */
POLYARC_EXTERN uint16_t FlParaTest(const void *unused, const LI_TAB_STRUCT *e1,
                                   const LI_TAB_STRUCT *e2);

/* The largest loop of a - b (or of a and b, with isect set) in *out, or
 * null when they do not cross. Returns the Boolean operation's status. */
POLYARC_EXTERN uint16_t FlBewDiffMaxKont(LI_HEAD *head, const LI_TAB_STRUCT *a,
                                         const LI_TAB_STRUCT *b, int32_t isect,
                                         LI_TAB_STRUCT **out);

/* Appends the offset element e1 to *out and joins it to the next offset
 * element e2. The second and third arguments are ignored. */
POLYARC_EXTERN uint16_t FlConicJoin(LI_HEAD *head, const void *unused1, const void *unused2,
                                    LI_TAB_STRUCT *e1, LI_TAB_STRUCT *e2, uint16_t side,
                                    LI_TAB_STRUCT **out);

/* The conic offset of contour k: element i is offset from dist[2 i] at its
 * start to dist[2 i + 1] at its end (dist holds two doubles per element).
 * The fifth argument is ignored. */
POLYARC_EXTERN uint16_t FlConic(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side,
                                const double *dist, const void *unused, LI_TAB_STRUCT **out,
                                uint32_t closed, uint16_t mode);

/* FlConic followed by the loop clean-up. */
POLYARC_EXTERN uint16_t FlConicClean(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side,
                                     const double *dist, const void *pass, LI_TAB_STRUCT **out,
                                     int32_t closed);

/* ---- Rectangle offset ------------------------------------------------- */

/* The corner of the rectangle of half-sides dx, dy by which a point with
 * direction dir moves to the given side; end selects the corner at
 * axis-parallel directions. Returns 0. */
POLYARC_EXTERN uint16_t FlOffsVk(const GE_POINT *dir, double dx, double dy, int16_t side,
                                 GE_POINT *offset, int32_t end, double scale);

/* Moves one element by its rectangle corners. Returns 0, PA_INVALID for an
 * arc that spans more than one quadrant of directions, or the status of
 * LiElemExpand. */
POLYARC_EXTERN uint16_t FlOffsElem(LI_TAB_STRUCT *e, double dx, double dy, uint16_t side);

/* Cuts every arc of the contour at its extreme point in the direction
 * (xfactor, yfactor). Returns the status of the last cut, 0 when none. */
POLYARC_EXTERN uint16_t FlOffsSplit(LI_HEAD *head, LI_TAB_STRUCT **k, int16_t yfactor,
                                    int16_t xfactor);

/* Bridges the gap between two rectangle-offset neighbours e1 and e2 with
 * axis-parallel lines. Returns 0, PA_INVALID for a gap that is not 0 or
 * the rectangle's width, PA_NO_MEMORY or the status of LiElemExpand. */
POLYARC_EXTERN uint16_t FlOffsKon(LI_HEAD *head, LI_TAB_STRUCT *e1, LI_TAB_STRUCT *e2, double dx,
                                  double dy, uint16_t side);

/* Carries the open start (at_start set) or end of the contour out to the
 * foot of target; never shortens it unless always is set. */
POLYARC_EXTERN uint16_t FlOffAnf(LI_HEAD *head, LI_TAB_STRUCT **k, const GE_POINT *target,
                                 int32_t at_start, int32_t always);

/* ---- Parallel offset -------------------------------------------------- */

/* Appends a copy of e1 to *out and, when e1's end and e2's start differ,
 * a connector between them: a line when draw is set, else a move,
 * numbered by the incremented *counter. Returns 0 or PA_NO_MEMORY. */
POLYARC_EXTERN uint16_t FlConElemMoveOrDraw(LI_HEAD *head, const LI_TAB_STRUCT *e1,
                                            const LI_TAB_STRUCT *e2, LI_TAB_STRUCT **out,
                                            uint16_t *counter, int32_t draw);

/* The contour at distance d beside k (side 1 left, 65535 right), its
 * corners joined in the corner mode; see the documentation of the corner
 * modes. *out must be empty and receives the result. */
POLYARC_EXTERN uint16_t FlParallel(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side, double d,
                                   LI_TAB_STRUCT **out, uint32_t closed, uint16_t mode,
                                   uint16_t *counter, uint16_t per_elem);

/* FlParallel followed by the loop clean-up (n = 65535: none). */
POLYARC_EXTERN uint16_t FlParallClean(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side, double d,
                                      LI_TAB_STRUCT **out, uint16_t mode, uint16_t n,
                                      int32_t rem_short, int32_t examine, uint16_t *counter,
                                      uint16_t per_elem);

/* ---- Limits and rotation ---------------------------------------------- */

/* The extreme points of the contour along the unit direction dir, with the
 * numbers of their elements. Returns 0. */
POLYARC_EXTERN uint16_t FlKontLim(const LI_TAB_STRUCT *k, const GE_POINT *dir, GE_POINT *min,
                                  GE_POINT *max, uint16_t *min_no, uint16_t *max_no);

/* The point of the contour whose direction of travel is angle, and its
 * element's number. Returns 0, or PA_IMPOSSIBLE when there is none. */
POLYARC_EXTERN uint16_t FlRotStart(const LI_TAB_STRUCT *k, double angle, int32_t sense,
                                   uint16_t *no, GE_POINT *pt);

/* The outline that the chain from first traces when turned about centre
 * from the direction of ref up to angle; *out must be empty. */
POLYARC_EXTERN uint16_t FlRotLim(LI_HEAD *head, const LI_TAB_STRUCT *first, const GE_POINT *centre,
                                 const GE_POINT *ref, double angle, int32_t sense_a,
                                 int32_t sense_b, LI_TAB_STRUCT **out, uint16_t *last_no);

#endif /* POLYARC_FL_H */
