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
 * repeat at the end of the list is dropped (only when entry 0 lies at a's
 * start point: two distinct crossings within the tolerance of each other
 * elsewhere both stay); a self list keeps both.
 * *list must be null (or a block of the memory service, which is reused);
 * the caller owns it afterwards, whatever the status, and frees it with
 * FlFreeCross. *last receives the last index (FL_EMPTY when none).
 * The list grows by half its size in whole steps of FL_CROSS_STEP.
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
 * 2) of *flags, which is cleared first. An entry inside an element
 * (GE_INSIDE) but within tol of its end or start, where nothing is cut,
 * gets GE_AT_END too (no flag): FlCrossSetPt must then close that joint
 * exactly on pt, or the loops keep a gap below tol there, and far from the
 * origin their areas are off by the gap times the distance from the
 * x-axis. *a and *b hold the contours' first elements and follow when a first element is cut; b may be null
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

/* After FlSplitCross every crossing lies at a joint of both contours:
 * elem_a ends at pt and next_a starts there, and the same for B. The
 * functions below write mode, side and rev of the entries:
 *   FL_MODE_CROSS (0)  B passes from one side of A to the other (0 also
 *                      marks an entry not classified yet);
 *   FL_MODE_JOIN (1)   B arrives from `side` and runs along A in A's
 *                      direction; or, with rev 1, B leaves to `side` after
 *                      running along A against its direction;
 *   FL_MODE_LEAVE (2)  B leaves to `side` after running along A in A's
 *                      direction; or, with rev 1, B arrives from `side`
 *                      and runs along A against its direction;
 *   FL_MODE_VOID (3)   a touch, a repeat or a cancelled overlap end:
 *                      every later step skips it.
 * side is 0 and rev 0 for modes 0 and 3. The order for two contours is
 * FlCrossSetPt, FlSetIdentDel, FlCheckCross, FlCrossLink; for one contour
 * FlCrossSetPt, FlSetIdentDel, FlRemIdentInv (flag 0), FlCheckCrossSingle,
 * FlRemIdentInv (flag 1), FlCrossLink; then FlCheckList or
 * FlCrossKonturCleanClosed choose loops. The crossing list stays the
 * caller's until FlCrossLink takes its storage. Operation codes:
 * FL_OP_UNION (4), FL_OP_INTERSECTION (5), FL_OP_DIFFERENCE (6). */

/* Classifies one split crossing from the unit tangents at pt
 * (GePtElemTan) of elem_a, next_a, elem_b and next_b: a_in, a_out, b_in,
 * b_out. A half that is a short detour stands for nothing by itself: when
 * its far end lies less than 10 x tol from pt and the next element of its
 * contour away from pt comes back past pt (its point nearest pt lies
 * within tol of pt per axis and not within tol of its far end, and pt
 * lies ahead of its joint with the half along it), that element
 * takes the half's place in every test below, and so on while this
 * repeats (never onto the contour's other half, a move, or round the
 * contour). The crossing list has merged the other contour's passage
 * across that element into this crossing, and the detour's own direction
 * would miss it: a tip of A 2 tol past a corner of B, say, would put B's
 * leaving half inside A. A detour that the other contour's half on the
 * same side of pt (arriving or leaving alike) runs along (as below) keeps
 * its place: the other contour follows it in the same sense to its far
 * end, where its passage has an entry of its own, and a crossing a few
 * tol before the tip of a narrow notch would otherwise count twice.
 * A half of B whose tangent runs within 60 degrees of a half of A
 * (dot product beyond +-0.5) takes its side from GeTanSide when the two
 * touch, side 0 meaning that it runs along A (a failed GeTanSide tells
 * nothing). Two such halves also run along each other when they lead to
 * one point more than tol from pt (per axis) and their sagittas add up to
 * less than tol: after the joints are snapped onto two crossings a few
 * tol apart, the tangents of such pieces still come from their old
 * carriers and would make one passage a crossing and a touch. A side
 * still unknown is read from the clockwise order of the
 * directions about pt starting at -a_in, a direction within 5e-9 of -a_in
 * counting as -a_in itself. Where A folds back (a_out . a_in < -0.5) and
 * GeTanSide gives its fold a side s, both halves of B count as lying on
 * -s unless they run along A. Equal sides give mode 3; B arriving along A
 * gives mode 1 (against A) or 2 with B's leaving side; B leaving along A
 * gives mode 1 or 2 (against A) with B's arriving side; else mode 0.
 * Returns 0; the status of GePtElemTan (PA_INVALID also for a null
 * element), the crossing then void; or PA_IMPOSSIBLE, deliberately an
 * error, when A runs straight back on itself (its fold has side 0), the
 * crossing void. */
POLYARC_EXTERN uint16_t FlSetModeSideRev(GE_CROSS *cross);

/* Classifies every entry of mode 0 in list order (FlSetModeSideRev) and,
 * when it is not then void, voids every later entry with the same elem_a,
 * elem_b, next_a and next_b and a point within tol per axis. Then, of
 * two live overlap ends of equal mode, side and rev that follow each
 * other along A, joined by one piece of A from the first to the second
 * and one piece of B back, both within 10 x tol, the second is voided: A
 * and B swap over within what the tolerance makes one point, and one end
 * of B's overlap was found twice. Stops at the first failing
 * classification and returns its status, leaving later entries
 * unclassified (and the second step not done); else 0. Finding the repeats
 * takes a scratch array
 * from the memory service; without it a plain scan finds the same, so
 * memory never fails the call. */
POLYARC_EXTERN uint16_t FlSetIdentDel(GE_CROSS *list, int16_t last);

/* For a self-crossing list, where each crossing is found as a x b and as
 * b x a: voids every later entry that mirrors a live entry j (elem_a and
 * elem_b exchanged, next_a and next_b exchanged, point within tol per
 * axis); with flag 0 only for entries j of mode 0. Memory as for
 * FlSetIdentDel. */
POLYARC_EXTERN void FlRemIdentInv(GE_CROSS *list, int16_t last, uint32_t flag);

/* Resolves the overlap ends of a two-contour list for the operation op.
 * The next entry of an entry is the next one in list order that is not
 * void, wrapping from last to 0. Three passes, in this order:
 * 1. a mode 1 entry with rev 0 followed by a mode 2 entry on the same side
 *    voids both (B ran along A and went back to its side: no crossing);
 * 2. the same again, and where the sides differ one end stays the
 *    crossing: with op 4 (union) the mode 1 entry is voided when its side
 *    is +1, else the mode 2 entry; with any other op the mode 1 entry is
 *    voided when its side is -1, else the mode 2 entry;
 * 3. a mode 1 or 2 entry that is the only live entry is voided.
 * Pairs nested in one another thus resolve from the inside out. Returns
 * 0. */
POLYARC_EXTERN uint16_t FlCheckCross(GE_CROSS *list, int16_t last, int32_t op);

/* Resolves the overlap ends of a self-crossing list: every mode 1 entry
 * is voided, and the mode 2 entry that follows it (next as for
 * FlCheckCross) too when both lie on the same side. Returns 0. */
POLYARC_EXTERN uint16_t FlCheckCrossSingle(GE_CROSS *list, int16_t last);

/* Moves the element ends at every crossing exactly onto pt, in list order.
 * Where loc_a is GE_AT_START or GE_AT_END and elem_a does not end exactly
 * at pt, elem_a's ep and then next_a's ap (unless next_a is elem_a)
 * become pt, each re-expanded (an arc first gets its centre corrected by
 * LiRadKorr); when elem_a already ends exactly at pt next_a is not looked
 * at. The same for B. An entry at a joint of A that an earlier live
 * entry (those of one joint stand together along A) already put at
 * another point is made void (mode 3) and moves nothing: both points lie
 * within tol of the joint, so at the tolerance they are one passage of
 * B, and a second move would leave the first entry's loops a gap. Returns
 * 0, or the first failing status of LiRadKorr or LiElemExpand (e.g.
 * PA_ZERO_LENGTH), which ends the walk. */
POLYARC_EXTERN uint16_t FlCrossSetPt(GE_CROSS *list, int16_t last);

/* Rewires the contours at every live crossing: elem_a's successor becomes
 * elem_b's old successor and elem_b's successor elem_a's old one (entries
 * with a null element are skipped). The crossing list's storage then
 * becomes the contour list *loops, deliberately without a new allocation:
 * each closed loop appears once, listed by the first of the elements at
 * the crossings (elem_a, elem_b, in list order) that lies on it;
 * *loops_last is its last index, *list becomes null and *last 0. The
 * elements belong to the loops and the caller frees *loops with
 * FlFreeList. With no usable crossing *loops is null, *loops_last
 * FL_EMPTY, and the list and the contours are left as they were. Uses
 * the elements' mark as a visit mark and leaves it 0 on every loop. */
POLYARC_EXTERN void FlCrossLink(GE_CROSS **list, int16_t *last, LI_TAB_STRUCT ***loops,
                                int16_t *loops_last);

/* Keeps the loops 0..*last of a contour list by the sign of their area
 * (LiKontArea: -1 below -tol, +1 above tol, else 0) and the wanted sign
 * (1, 0 or 65535 for -1). Loops of sign 0 are always removed. select:
 *   4      the wanted-sign loop of largest |area| is taken out of the list
 *          into *extra, the other wanted-sign loops are removed, loops of
 *          the other sign stay;
 *   5      the wanted-sign loops stay except the largest, loops of the
 *          other sign are removed;
 *   6      the wanted-sign loops stay, loops of the other sign are removed;
 *   other  every loop of non-zero sign stays.
 * On a tie of |area| the earlier loop is the largest. Removed loops go
 * back to head and the list closes up in order (*last decreases). *extra
 * is overwritten (null when nothing is taken); the caller owns it.
 * Returns 0, or PA_INVALID for null arguments. */
POLYARC_EXTERN uint16_t FlCheckList(LI_HEAD *head, LI_TAB_STRUCT **loops, int16_t *last,
                                    uint16_t sign, uint16_t select, LI_TAB_STRUCT **extra);

/* ---- Result contour assembly ------------------------------------------ */

/* These pipelines consume their input contours whenever loops result: the
 * handles become null and the elements belong to the loops of the contour
 * list, which the caller frees with FlFreeList. When nothing is linked,
 * the inputs stay whole, though elements may have been cut at crossings
 * that were voided later. The crossing list is freed in every case. */

/* Cuts two closed contours at their crossings and rewires them into loops
 * for the operation op: FlCrossList, then FlSplitCross (*flags: bit 1
 * when a was cut, bit 2 when b was), FlCrossSetPt, FlSetIdentDel,
 * FlCheckCross and FlCrossLink, each while all before it returned 0. When
 * loops result *a and *b become null and *loops (0..*last) holds them;
 * else *loops is null and *last FL_EMPTY. An empty *a or *b gives 0 and
 * no loops. Returns 0 or the first failing status of the steps (such as
 * PA_NO_MEMORY, PA_LIST_FULL, PA_NO_RECORD), the contours then whole. */
POLYARC_EXTERN uint16_t FlCrossKonturClosed(LI_HEAD *head, LI_TAB_STRUCT **a, LI_TAB_STRUCT **b,
                                            int32_t op, uint32_t *flags, LI_TAB_STRUCT ***loops,
                                            int16_t *last);

/* Chooses the loops 0..*last of a Boolean result by their areas a, given
 * the absolute areas of the inputs, with the deliberately small area
 * tolerance t2 = tol^2:
 *   op 4  a >= max(area_a, area_b) - t2 is the outer loop and moves to
 *         index 0, a second one is an error; holes (a <= -t2) stay;
 *         every other loop is removed;
 *   op 5  loops with t2 <= a <= min(area_a, area_b) + t2 stay;
 *   op 6  loops with a >= t2 stay;
 *   other every loop stays.
 * Removed loops go back to head. Returns 0 when a loop fitted (the outer
 * loop, a kept loop, or for other ops a loop with a >= t2), the list then
 * closed up and *last recounted; PA_INVALID for exactly one loop (nothing
 * touched: one loop is no result of two crossing contours) or for a
 * second outer loop; PA_IMPOSSIBLE for an empty list or when no loop
 * fitted. After a failure the removed loops leave null entries and *last
 * stays, so that FlFreeList still frees the list. */
POLYARC_EXTERN uint16_t FlCrossKonturCleanClosed(LI_HEAD *head, double area_a, double area_b,
                                                 uint32_t op, LI_TAB_STRUCT **loops,
                                                 int16_t *last);

/* Cuts one contour at its self-crossings (FlCrossListSingle with width n,
 * taken as a signed 16-bit value) and rewires it into loops: FlSplitCross,
 * FlCrossSetPt, FlSetIdentDel, FlRemIdentInv (flag 0), FlCheckCrossSingle,
 * FlRemIdentInv (flag 1), FlCrossLink. When loops result *k becomes null
 * and *loops (0..*last) holds them. Statuses as for FlCrossKonturClosed. */
POLYARC_EXTERN uint16_t FlCrossKonturSingle(LI_HEAD *head, LI_TAB_STRUCT **k,
                                            LI_TAB_STRUCT ***loops, int16_t *last, uint16_t n);

/* Cleans one contour of its self-crossing loops; the offsets' clean-up.
 * With rem_short set, elements shorter than tol (100 x tol when tol is
 * below 5e-05) are removed first by LiRemShort (closed unless mode is 3;
 * arcs are not flattened), whose failure is returned at once. Then
 * FlCrossKonturSingle with width n. When nothing crosses, *no_cross is 1
 * and the contour is left as it is. Else *no_cross is 0, *k null, and the
 * cleaning mode decides, with sign the wanted area sign (1, 0, -1; signs
 * as for FlCheckList):
 *   3      (open contour) one loop becomes *out, closed by LiCheckClosed:
 *          loop 1 when the number of loops is even and loop 1 has the
 *          wanted sign, else loop 0 (a parity rule kept as it stands); the
 *          other loops go back to head, *loops is null, *last FL_EMPTY;
 *   2      (inward) FlCheckList code 6: *loops keeps the wanted-sign loops;
 *   other  (outward) FlCheckList code 4: the largest wanted-sign loop
 *          becomes *out, *loops keeps the loops of the other sign.
 * The caller owns *out and *loops. Returns 0 or the first failing status;
 * after a failure of the crossing steps *no_cross is 1, *out and *loops
 * null, and the contour whole. */
POLYARC_EXTERN uint16_t FlCleanKont(LI_HEAD *head, LI_TAB_STRUCT **k, int16_t sign, uint16_t mode,
                                    LI_TAB_STRUCT **out, LI_TAB_STRUCT ***loops, int16_t *last,
                                    uint32_t *no_cross, uint16_t n, int32_t rem_short);

/* ---- Boolean operations ----------------------------------------------- */

/* Union, difference (a - b) and intersection of two closed contours of
 * either orientation, computed on copies: a and b are never changed, and
 * every copy goes back to the store on every path.
 *
 * The copies lose their elements shorter than short_len (LiRemShort;
 * with keep 0 nearly straight arcs become lines too) and their slivers
 * (an arc whose ends coincide within tol in a contour of several
 * elements: a cut left it, and as a full circle it would count as a whole
 * disc and cross b anywhere on its circle). Boxes that do not overlap end
 * the call at once. Then a runs counter-clockwise, and b too for union and
 * intersection, clockwise for the difference; the crossing pipeline
 * (FlCrossKonturClosed) rewires them, and FlCrossKonturCleanClosed keeps
 * the loops the operation wants, given both areas.
 *
 * Reading the result:
 * 1. status != 0: no result. *loops is null and *last FL_EMPTY.
 *    PA_INVALID with *no_cross 0: a single loop, or two outer loops of a
 *    union. A single loop also comes where an arc and an element of the
 *    other contour fall within the touching band of GeIseCirCir or
 *    GeIseCirLin (they meet within tol of tangency) yet cross twice, far
 *    apart, and only one of those crossings lies on both elements: the
 *    band gives one touching point, off them, and that crossing is lost.
 *    PA_IMPOSSIBLE with *no_cross 0: the contours crossed but no
 *    loop is of the operation's kind; for an intersection of contours
 *    that only share boundary (a common side, part of one) this is the
 *    empty intersection. PA_IMPOSSIBLE or PA_NO_RECORD with *no_cross 1:
 *    the store or the memory ran out (or a crossing point was lost);
 *    PA_LIST_FULL: more than FL_CROSS_MAX crossings; other codes come
 *    from LiRemShort or the element recomputations. PA_INVALID for a null
 *    argument or an empty contour, and (*no_cross 1) for a contour that
 *    is not closed, or whose copy no longer closes once its short
 *    elements are gone (all of it shorter than short_len).
 * 2. *no_cross 0: the region is the loops 0..*last of *loops, a contour
 *    list the caller frees with FlFreeList. A union gives its outer loop
 *    (counter-clockwise) at index 0, then its holes (clockwise); an
 *    intersection or a difference gives counter-clockwise loops, one per
 *    piece.
 * 3. *no_cross 1: nothing crossed, *loops is null, and *contain says how
 *    the contours nest: 1 when a lies inside b (LiKontExactInKont; on the
 *    boundary counts as inside), -1 when b lies inside a, 0 when they lie
 *    apart (also when the boxes are disjoint). The caller draws:
 *                  union          intersection   a - b
 *      contain 1:  b              a              nothing
 *      contain -1: a              b              a with b as its hole
 *      contain 0:  a and b        nothing        a
 * Contours that only touch at points do not cross (*no_cross 1); those
 * that share a stretch of boundary usually do. */
POLYARC_EXTERN uint16_t FlUnionKont(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
                                    double short_len, int32_t keep, LI_TAB_STRUCT ***loops,
                                    int16_t *last, uint32_t *no_cross, int16_t *contain);
POLYARC_EXTERN uint16_t FlDiffKont(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
                                   double short_len, int32_t keep, LI_TAB_STRUCT ***loops,
                                   int16_t *last, uint32_t *no_cross, int16_t *contain);
POLYARC_EXTERN uint16_t FlIsectKont(LI_HEAD *head, const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b,
                                    double short_len, int32_t keep, LI_TAB_STRUCT ***loops,
                                    int16_t *last, uint32_t *no_cross, int16_t *contain);

/* Joins two closed contours along the stretches they share, as two
 * neighbouring regions join: both are cut at the ends of every shared
 * stretch (LiElemTeilen), the stretch is cut out of both, and each contour
 * goes on with the other behind it. k1 and k2 are consumed. A shared
 * stretch is one that both elements really cover, longer than tol, with
 * its ends on element ends (two arcs of one circle that only meet end to
 * end share nothing). Stretches that follow one another on both contours
 * count as one; at most 100 are kept.
 * The contours join where they run their common stretches in opposite
 * senses; when they run all of them the same way (one of them clockwise),
 * k2 is reversed first. Contours that coincide entirely are not joined.
 * The loops go into the caller's array loops (indices 0..capacity), then
 * those of positive area (negative with sign set) are moved out: the
 * first to *out, later ones to *out2 (a loop that was there goes back to
 * the store); *last is the last index of what stays. With nothing to join
 * *out = k1, *out2 = k2 (cut, but whole) and *last = FL_EMPTY.
 * Returns 0; PA_NO_RECORD for a 101st stretch, a record shortage while
 * cutting, a broken chain, or loops beyond capacity (those go back to the
 * store); PA_ZERO_RADIUS from a cut arc; PA_INVALID for a null argument or
 * k1 == k2. After a failure while cutting, *out and *out2 hold the cut
 * contours. */
POLYARC_EXTERN uint16_t FlUnionIdent(LI_HEAD *head, LI_TAB_STRUCT *k1, LI_TAB_STRUCT *k2,
                                     uint32_t sign, LI_TAB_STRUCT **out, LI_TAB_STRUCT **out2,
                                     LI_TAB_STRUCT **loops, uint16_t capacity, int16_t *last);

/* Removes spikes where the contour runs forward and straight back: for
 * each element e (from the first) and its successor f that share a
 * stretch in opposite senses from their joint, e and f cancel when f
 * returns exactly to e's start; f takes e's start when it runs back
 * beyond it (the walk then goes on with f); otherwise e ends where f ends
 * and f goes (the walk goes on after e). With whole clear the pair of the
 * last and the first element is not looked at. Changed contours are
 * finished with LiCrunch. *k moves when its element goes and is null when
 * nothing is left. Returns 0, the status of LiElemExpand, or PA_INVALID
 * for a null head or k. */
POLYARC_EXTERN uint16_t FlCleanIdent(LI_HEAD *head, LI_TAB_STRUCT **k, uint32_t whole);

/* ---- Convexity -------------------------------------------------------- */

/* *convex receives 0 when the joint from e to its successor f turns
 * against the orientation orient (1 counter-clockwise, -1 clockwise): f is
 * an arc that bulges inwards (clockwise in a counter-clockwise contour and
 * the other way round), or the cross product of e's end tangent and f's
 * start tangent turns the wrong way by more than tol / f's length (tol /
 * rad for an arc). Smaller turns, a degenerate f and any other orient
 * count as convex (1), except for the arc rule. Returns 0, or PA_INVALID
 * for a null argument. */
POLYARC_EXTERN uint16_t FlTestKonvex(const LI_TAB_STRUCT *e, const LI_TAB_STRUCT *f, int16_t orient,
                                     uint32_t *convex);

/* Turns every arc that bulges inwards for the orientation (1 or 65535 for
 * -1, as in FlTestKonvex) into the line between its ends; *changed
 * receives 1 when one did. Returns 0 (also for a null k), the status of
 * LiElemExpand at the first failure (a full circle has no chord), or
 * PA_INVALID for a null changed. */
POLYARC_EXTERN uint16_t FlRemBogKonk(LI_TAB_STRUCT *k, uint16_t orient, uint32_t *changed);

/* The common outer tangent of e and f, each taken as its circle (arcs,
 * with e_circle / f_circle set) or as its outer end point (e's ap, f's
 * ep): its touching points in *t1 and *t2. Both points: the chord, 0. The
 * first tangent of GeCirCirTan (outer tangents, signed radii) is taken
 * when the feet of the circles' centres on it lie on their elements
 * (GePtOnElem), else the second. Returns 0; PA_IMPOSSIBLE when neither
 * tangent touches both elements or GeCirCirTan finds none (a point inside
 * the circle); PA_INVALID for a null argument. */
POLYARC_EXTERN uint16_t FlKonnKonvex(const LI_TAB_STRUCT *e, const LI_TAB_STRUCT *f,
                                     int32_t e_circle, int32_t f_circle, GE_POINT *t1,
                                     GE_POINT *t2);

/* Tries FlKonnKonvex in turn with both arcs as circles (lines are always
 * points), e as its start point, f as its end point, and both as points;
 * the first that fits gives *t1 and *t2. Returns 0, or PA_IMPOSSIBLE when
 * none fits or an argument is null. */
POLYARC_EXTERN int16_t FlSeekKon(const LI_TAB_STRUCT *e, const LI_TAB_STRUCT *f, GE_POINT *t1,
                                 GE_POINT *t2);

/* Bridges the concave joint between e and its successor f along their
 * common outer tangent t1-t2 (FlSeekKon): e ends at t1 (or becomes the
 * bridge when t1 is its start), f starts at t2 (or is deleted when t2 is
 * its end), and a new line t1-t2 goes between when both keep a piece.
 * *k moves when f was first and goes. Returns 0, PA_IMPOSSIBLE when no
 * tangent fits or e is alone (nothing changed), PA_NO_MEMORY (nothing
 * changed), the status of LiElemExpand, or PA_INVALID for a null
 * argument. */
POLYARC_EXTERN uint16_t FlRemKonkav(LI_HEAD *head, LI_TAB_STRUCT **k, LI_TAB_STRUCT *e);

/* ---- Side, parallel and conic tests ----------------------------------- */

/* The way e2 turns off e1 at a common point, given their unit tangents
 * t1, t2 there: 1 when t1 x t2 > tol (left), -1 when it is < -tol, both
 * exchanged with swap set. Parallel tangents compare the curvatures
 * (1/rad counter-clockwise, -1/rad clockwise, 0 for lines): with s the
 * sign of t1.t2 beyond tol, the sign of k1 - s k2 beyond tol, whatever
 * swap is. The first argument is ignored; 0 for a null argument. */
POLYARC_EXTERN int16_t FlTangSide(const void *unused, const LI_TAB_STRUCT *e1, const GE_POINT *t1,
                                  const LI_TAB_STRUCT *e2, const GE_POINT *t2, int32_t swap);

/* 1 when e1 and e2 lie on the same carrier, else 0. Two lines (or moves):
 * GeElemTestParallel is not 0 and the carriers' constants (rad) agree
 * within tol once e2's is turned to e1's normal, so a line run the other
 * way is on the same carrier and a line at the mirrored distance is not.
 * Two arcs: radii and centres (per axis) within tol. Other pairs and null
 * arguments: 0. The first argument is ignored. */
POLYARC_EXTERN uint16_t FlParaTest(const void *unused, const LI_TAB_STRUCT *e1,
                                   const LI_TAB_STRUCT *e2);

/* The loop of largest |area| (the first of equals) of a - b, or of the
 * intersection of a and b with isect set, in *out; the caller owns it.
 * Short elements are removed at tol (at 100 x tol when tol is below its
 * default 5e-05) and arcs are kept. *out stays null when the operation
 * fails or the contours do not cross (whatever their nesting). Returns
 * the Boolean operation's status, or PA_INVALID for a null out. */
POLYARC_EXTERN uint16_t FlBewDiffMaxKont(LI_HEAD *head, const LI_TAB_STRUCT *a,
                                         const LI_TAB_STRUCT *b, int32_t isect,
                                         LI_TAB_STRUCT **out);

/* The conic (tapering) offset: every element is offset by a distance that
 * runs linearly from its start to its end (LiConicElem), and neighbours
 * are joined as the parallel offset's connectors do, with lines.
 *
 * FlConicJoin appends the offset element e1 to *out and joins it to the
 * next offset element e2: with side 0, or when e1 ends where e2 starts,
 * e1 alone; two lines that cross on both, or beyond e1's end and before
 * e2's start, are trimmed or extended to their crossing; anything else is
 * bridged by a connecting line (FlConElemMoveOrDraw with draw set). Its
 * connecting lines carry number 0 (it has no connector counter). e1 and
 * e2 are working copies that it may change. The second and third
 * arguments are ignored. Returns 0 or PA_NO_MEMORY. */
POLYARC_EXTERN uint16_t FlConicJoin(LI_HEAD *head, const void *unused1, const void *unused2,
                                    LI_TAB_STRUCT *e1, LI_TAB_STRUCT *e2, uint16_t side,
                                    LI_TAB_STRUCT **out);

/* The conic offset of contour k (unchanged) to side (1 left, 65535 right)
 * into *out (set to null first, not released): element i, counted from k
 * along next, runs from dist[2 i] at its start to dist[2 i + 1] at its
 * end, so dist holds two doubles per element. With closed set the last
 * element is joined to the first as well. Sets the process-wide corner
 * mode to mode (only FL_CORNER_GAP matters here: it skips the final
 * LiKorrKont, which otherwise removes tiny elements and closes the
 * joints). The fifth argument is ignored. Returns 0; PA_INVALID for a
 * null k or dist or an empty result; PA_NO_MEMORY; the status of
 * LiConicElem (PA_ZERO_LENGTH, PA_ZERO_RADIUS, PA_DEGENERATE when no arc
 * passes through an arc's three offset points) or of LiKorrKont. On any
 * failure the partial result is released and *out is null. */
POLYARC_EXTERN uint16_t FlConic(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side,
                                const double *dist, const void *unused, LI_TAB_STRUCT **out,
                                uint32_t closed, uint16_t mode);

/* FlConic (sharp corners) followed by the loop clean-up: the conic offset
 * of k (not changed) with its self-crossing loops cut off, into *out (set
 * to null first; the caller owns it), as FlParallClean does for the
 * parallel offset (see there for the offset kinds, what is kept, the
 * orientation test and where a closed result starts); FlCleanKont runs
 * with neighbourhood 0 and no short-element removal. pass is handed to
 * FlConic. The contour counts as closed only when closed is set and
 * LiTestClosed says so. Unlike the parallel offset's moves, the conic
 * join's connecting lines take part in the crossings: an offset deeper
 * than the contour allows can leave a loop made of them. Returns 0,
 * PA_INVALID for a null k or dist or when only collapsed end arcs remain
 * of an open offset, or the status of FlConic or FlCleanKont. */
POLYARC_EXTERN uint16_t FlConicClean(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side,
                                     const double *dist, const void *pass, LI_TAB_STRUCT **out,
                                     int32_t closed);

/* ---- Rectangle offset ------------------------------------------------- */

/* The rectangle offset moves every point of an element by the corner of an
 * axis-aligned rectangle with half-sides dx, dy that lies furthest out on
 * the chosen side (1 left of the direction of travel, 65535 or -1 right):
 * the outline that a rectangular tool sweeps. The caller runs the steps:
 * FlOffsSplit four times, with (yfactor, xfactor) = (1, 0), (0, 1),
 * (-1, 0), (0, -1), so that no arc turns through more than a quadrant of
 * directions; FlOffsElem on every element; FlOffsKon on every pair of
 * neighbours (last and first too for a closed contour); FlOffAnf on the
 * start and end of an open contour; then the loop clean-up (FlCleanKont)
 * for the loops that inner corners leave. */

/* The displacement for a point whose unit direction of travel is dir:
 * the corner (+-dx, +-dy) on the given side (only -1 counts as right).
 * Components are compared with tol / scale (the element's radius, or its
 * length for lines). At an axis-parallel direction both sides take the
 * corner that lengthens the element: end 0 for a start, 1 for an end (for
 * a line to the right along +x: start (-dx, -dy), end (+dx, -dy)).
 * Returns 0. */
POLYARC_EXTERN uint16_t FlOffsVk(const GE_POINT *dir, double dx, double dy, int16_t side,
                                 GE_POINT *offset, int32_t end, double scale);

/* Moves one element by its rectangle corners: each end by its own corner,
 * an arc's centre with its end (its radius unchanged). Lines are
 * lengthened at both ends, arcs when the offset runs towards their
 * centre, moves never. Returns 0 (also for an element whose ends now
 * coincide, left unexpanded), PA_INVALID for an arc whose two corners
 * differ because it turns through more than a quadrant (the element is
 * then unchanged; split it with FlOffsSplit first), or the status of
 * LiElemExpand (the moved points stay). */
POLYARC_EXTERN uint16_t FlOffsElem(LI_TAB_STRUCT *e, double dx, double dy, uint16_t side);

/* Cuts every arc of the contour *k at its point mp + rad (xfactor,
 * yfactor) when that lies strictly inside it (LiElemTeilen; a new piece
 * before the arc, which becomes *k when the arc was first). Returns the
 * status of the last cut, 0 when none or for an empty contour; the walk
 * stops at a failing cut. */
POLYARC_EXTERN uint16_t FlOffsSplit(LI_HEAD *head, LI_TAB_STRUCT **k, int16_t yfactor,
                                    int16_t xfactor);

/* Bridges the gap from e1's end to e2's start (both already moved by
 * FlOffsElem, e2 following e1) with lines chained after e1 that carry e1's
 * payload and number: one line when only one gap component is at least
 * tol, else two axis-parallel legs whose corner lies on the outer side
 * for the given side. Each gap component must be 0 or the full width 2 dx
 * (2 dy) within tol. The legs are never merged with e2. Returns 0 (also
 * for e1 = e2 or no gap), PA_INVALID for any other gap (nothing added),
 * PA_NO_MEMORY (a first leg already made stays), or the status of
 * LiElemExpand. */
POLYARC_EXTERN uint16_t FlOffsKon(LI_HEAD *head, LI_TAB_STRUCT *e1, LI_TAB_STRUCT *e2, double dx,
                                  double dy, uint16_t side);

/* Carries the open start (at_start set) or end of contour *k out to the
 * foot of target on the end element's carrier: the end is only ever
 * lengthened, never shortened, unless always is set. An arc end with an
 * axis-parallel tangent whose foot lies off the arc gets a new tangent
 * line there (made first at the start) that runs to the foot. The
 * tolerance for axis-parallel is tol / rad when |rad| > tol, using rad as
 * stored even for lines (where it is the carrier's distance from the
 * origin), as this rule always has. Returns 0, PA_INVALID for an empty
 * contour, PA_NO_MEMORY, PA_IMPOSSIBLE when target is an arc's centre, or
 * the status of LiElemExpand. */
POLYARC_EXTERN uint16_t FlOffAnf(LI_HEAD *head, LI_TAB_STRUCT **k, const GE_POINT *target,
                                 int32_t at_start, int32_t always);

/* ---- Parallel offset -------------------------------------------------- */

/* The parallel offset runs beside a contour at a fixed distance d, to the
 * left (side 1) or right (side 65535, that is -1) of its direction of
 * travel: each element is moved sideways (LiParElem; an arc's radius
 * grows or shrinks by d, and goes negative when the offset passes its
 * centre), and each corner between neighbours is joined in the corner
 * mode, which the call stores in one process-wide variable (shared by all
 * callers, not synchronised, and left set afterwards):
 *
 *   FL_CORNER_SHARP (0, and 4 alike): neighbours are trimmed to their
 *     crossing, or extended to it when it lies beyond the first one's end
 *     and before the second one's start (or just off one of them, where
 *     the source elements meet): sharp corners, as a CAM programmer knows
 *     them. Neighbours that do not cross at all (an arc and a line that
 *     part) get an arc about the source corner; a crossing anywhere else
 *     gets a move.
 *   FL_CORNER_ROUND (2): every corner that opens on the offset side gets
 *     an arc of radius d about the source corner, a round corner; the
 *     other corners are trimmed to the crossing, and neighbours that do
 *     not cross on both get a move.
 *   FL_CORNER_GAP (3): neighbours that cross on both are trimmed; else
 *     nothing is added, a gap is left open, and the final repair is
 *     skipped.
 *   Any other value: trimmed where neighbours cross on both, else a move.
 *
 * A path that turns straight back (a spike) gets a half circle in every
 * mode. Connectors (round-corner arcs, lines, moves) carry attr_val 0,
 * attr_id 0 and no = the caller's connector counter after incrementing
 * it, so that a caller can tell them from the offsets of its numbered
 * elements, which keep their number and payload. Moves (type 2) in a
 * result mark places where the offset has no drawn connection. */
enum {
  FL_CORNER_SHARP = 0, /* trimmed or extended to the crossing */
  FL_CORNER_ROUND = 2, /* an arc about the source corner */
  FL_CORNER_GAP = 3    /* outer corners left open, no final repair */
};

/* FlParallClean without loop clean-up. */
enum { FL_NO_CLEANUP = 65535 };

/* Appends a copy of e1 to *out (LiInsertElem, so an e1 whose ends
 * coincide is skipped) and, when e1's end and e2's start differ by tol or
 * more in a coordinate, a connector between them: a line when draw is
 * set, else a move, with attr_val 0, attr_id 0 and no = ++*counter.
 * Returns 0 or PA_NO_MEMORY (a copy of e1 already appended stays). */
POLYARC_EXTERN uint16_t FlConElemMoveOrDraw(LI_HEAD *head, const LI_TAB_STRUCT *e1,
                                            const LI_TAB_STRUCT *e2, LI_TAB_STRUCT **out,
                                            uint16_t *counter, int32_t draw);

/* The raw parallel offset of contour k (unchanged) at distance d into *out
 * (set to null first, not released), with corners joined in the corner
 * mode (see above). With closed set the last element is joined to the
 * first too and the result is closed; without it the result is open and
 * runs from the first element's offset to the last's. With per_elem set
 * every element is offset by its own attr_val instead (round corners
 * still use d). A negative d offsets to the other side (the side is
 * turned round, so round corners keep a positive radius). Side 0 or
 * |d| < tol gives a copy of k. The result starts with the first element's
 * offset and is finished, except in FL_CORNER_GAP, by LiKorrKont (tiny
 * elements removed, joints closed, negative radii made positive); arcs
 * that nearly close on themselves are first cut in two so that this
 * repair, which judges elements by their chord, keeps them. A single-arc
 * result keeps a negative radius when the offset passed its centre. The
 * raw result may cross itself: FlParallClean cuts off those loops.
 * A corner join that fails on degenerate geometry (an element trimmed to
 * nothing) ends the walk along the contour without a status, by design:
 * the corners joined so far are finished as the result. Returns 0;
 * PA_INVALID for a null k or an empty result; PA_NO_MEMORY when the store
 * runs out (also inside the walk); PA_NO_RECORD when the copy fails; or
 * the status of LiKorrKont. On any failure the partial result is released
 * and *out is null. */
POLYARC_EXTERN uint16_t FlParallel(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side, double d,
                                   LI_TAB_STRUCT **out, uint32_t closed, uint16_t mode,
                                   uint16_t *counter, uint16_t per_elem);

/* The parallel offset with its self-crossing loops cut off, into *out
 * (set to null first; the caller owns it; k is not changed). With examine set and k closed (LiTestClosed) the
 * offset kind is outward (1: a counter-clockwise k offset to the right,
 * or a clockwise one to the left) or inward (2), and the result is closed;
 * otherwise the kind is open (3) and so is the result. Then:
 *  - FlParallel with the mode, counter and per_elem; an open result loses
 *    arcs that collapsed (negative radius) at its ends;
 *  - unless n is FL_NO_CLEANUP or |d| <= tol, FlCleanKont with the kind
 *    as its cleaning mode, the neighbourhood width n and rem_short:
 *    outward keeps the largest loop of the contour's orientation (holes
 *    are dropped), inward keeps the first such loop (a contour that the
 *    offset splits in two gives only one of them), open keeps the loop
 *    that FlCleanKont's parity rule picks;
 *  - a closed result starts at the element whose number is that of k's
 *    first element (when there is one).
 * When nothing crosses, a closed offset is kept only when its orientation
 * is k's: an offset inwards deeper than the contour allows turns round
 * (or, for a circle, passes its centre) and gives nothing, that is status
 * 0 and a null *out, as when every loop has the wrong orientation; so does
 * one that shrinks the contour to a point, where the raw offset is a lone
 * element that does not close. Arcs
 * whose ends coincide within tol in a result of several elements (tiny
 * arcs shrunk by the offset, which would read as full circles) are
 * removed before the clean-up. Returns 0, PA_INVALID for a null k or when
 * only collapsed end arcs remain, or the status of FlParallel or
 * FlCleanKont (PA_NO_MEMORY or PA_NO_RECORD when the store runs out). */
POLYARC_EXTERN uint16_t FlParallClean(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side, double d,
                                      LI_TAB_STRUCT **out, uint16_t mode, uint16_t n,
                                      int32_t rem_short, int32_t examine, uint16_t *counter,
                                      uint16_t per_elem);

/* The offset of the region that the closed contour k bounds, by d to side
 * (as FlParallel: 1 left, 65535 right, a negative d to the other side),
 * with corners joined in mode: the raw offset (FlParallel, closed, with
 * counter), cut at its self-crossings (FlCleanKont on the whole contour,
 * no short-element removal), and of its loops exactly those that lie at
 * the distance |d| from k: the middle of a loop's longest drawn element
 * lies no nearer than |d| - 10 tol to any drawn element of k (moves of k
 * count for nothing). Outward (to the right of a counter-clockwise k, to
 * the left of a clockwise one) the outer loop, of k's orientation, comes
 * first, then the holes the offset closes off (the mouth of a C); inward
 * every loop of k's orientation (both halves of a dumbbell offset past its
 * waist). Loops that come nearer than |d| are left out: the tangles that a
 * jagged rim leaves, and the turned-round offsets of arcs tighter than |d|.
 * Before the clean-up, where the raw offset leaves the distance, runs
 * through elements that lie wholly nearer than |d| - 100 tol to k, and
 * comes back along an element that crosses the one it left by, that loop
 * is cut off at the crossing, as the clean-up would cut it off: the loops
 * kept stay the same, and a jagged rim, whose raw offset crosses itself a
 * few times per vertex, no longer fills the crossing list. In the gap
 * corner mode the loops keep the gaps the offset leaves.
 * Side 0 or |d| <= tol gives a copy of k as the only loop. counter may be
 * null. *list (set to null first) receives the loops 0..*last, a contour
 * list the caller frees with FlFreeList. An offset that vanishes (inward
 * deeper than the contour allows) gives status 0, a null *list and *last
 * FL_EMPTY. *dropped (may be null) counts the loops of the clean-up left
 * out for coming nearer than |d|. k is never changed. Returns 0;
 * PA_INVALID for a null head, list or last, or a k that is null, open, or
 * of an area within tol of 0; PA_NO_MEMORY or PA_NO_RECORD when memory or
 * the store runs out; PA_LIST_FULL when the offset still crosses itself
 * more often than a crossing list holds; or the status of FlParallel or
 * FlCleanKont. On failure *list is null, *last FL_EMPTY, and every record
 * is back in the store. */
POLYARC_EXTERN uint16_t FlParallelRegion(LI_HEAD *head, const LI_TAB_STRUCT *k, uint16_t side,
                                         double d, uint16_t mode, uint16_t *counter,
                                         LI_TAB_STRUCT ***list, int16_t *last, uint32_t *dropped);

/* ---- Limits and rotation ---------------------------------------------- */

/* The extreme points of contour k along the unit direction dir: *min and
 * *max receive the points where dir . p is smallest and largest, *min_no
 * and *max_no their elements' numbers. Only element end points and the
 * extreme points of arcs count (an open contour's very first start point
 * is not examined); moves count by their end point. Ties keep the earlier
 * element. All outputs are 0 for a null k. Returns 0. */
POLYARC_EXTERN uint16_t FlKontLim(const LI_TAB_STRUCT *k, const GE_POINT *dir, GE_POINT *min,
                                  GE_POINT *max, uint16_t *min_no, uint16_t *max_no);

/* The point of contour k where the direction of travel is angle: the
 * start of an element whose start tangent has that direction, a corner
 * that turns through it (from the previous element's end tangent to the
 * element's start tangent, counter-clockwise with sense 0, else
 * clockwise), or the point of an arc where its tangent has it (arcs read
 * as counter-clockwise with sense 0, as clockwise otherwise). The last
 * match along the chain wins, by design. *no receives its element's
 * number and *pt the point. Returns 0, or PA_IMPOSSIBLE when nothing
 * matched or k is null; since *no = 0 means no match, an element
 * numbered 0 is never reported. */
POLYARC_EXTERN uint16_t FlRotStart(const LI_TAB_STRUCT *k, double angle, int32_t sense,
                                   uint16_t *no, GE_POINT *pt);

/* The outline that the chain from first traces when it is turned about
 * centre, from the direction of ref (seen from centre) through angle:
 * counter-clockwise with sense_a 0, clockwise otherwise; sense_b set
 * follows the chain's arcs on their inner side. Element by element, every
 * change of the chain's normal becomes an arc of radius |centre - ref|
 * about the chain's point shifted by centre - ref (an arc of the chain an
 * arc about its shifted centre), and lines are copied along, until the
 * normal reaches the limit direction; the walk follows next past the end
 * of the chain if need be. *out (set to null first) receives the outline
 * and *last_no the number of the last element that turned it. Returns 0;
 * PA_IMPOSSIBLE when a whole pass over the chain turns nothing, since the
 * limit would never be reached; PA_NO_MEMORY or the status of
 * LiElemExpand. On failure the outline is released. */
POLYARC_EXTERN uint16_t FlRotLim(LI_HEAD *head, const LI_TAB_STRUCT *first, const GE_POINT *centre,
                                 const GE_POINT *ref, double angle, int32_t sense_a,
                                 int32_t sense_b, LI_TAB_STRUCT **out, uint16_t *last_no);

#endif /* POLYARC_FL_H */
