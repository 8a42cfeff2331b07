/* polyarc Li family: the element store, chains and contours.
 *
 * A contour is a circular, doubly linked chain of LI_TAB_STRUCT records,
 * designated by a pointer to its first element; null is the empty contour.
 * Functions that may change which element is first take the address of the
 * caller's handle ("kont"). Records belong to the LI_HEAD store they came
 * from: giving a contour back (LiRemove) puts its records on the store's
 * free list, and only LiFreeMem returns memory.
 *
 * Bad arguments never crash: unless a function says otherwise, a null store
 * or null handle address makes an allocating function return PA_NO_MEMORY
 * (PA_INVALID where it takes a handle address) and change nothing; a null
 * element makes a function without a status do nothing and return 0 or
 * null. */
#ifndef POLYARC_LI_H
#define POLYARC_LI_H

#include <stdio.h>

#include "polyarc/records.h"

/* ---- Store ------------------------------------------------------------ */

/* Adds a block of count records to the store's free list, in address order
 * in front of the old free records. count 0 does nothing and returns 0.
 * Returns PA_NO_MEMORY when the memory service fails (the store stays as
 * it was, though its block table may have grown). */
POLYARC_EXTERN uint16_t LiExpand(LI_HEAD *head, uint16_t count);

/* Pops a record from the free list (growing the store by 256 records when
 * it is empty). The record is uninitialised; null when the store cannot
 * grow. */
POLYARC_EXTERN LI_TAB_STRUCT *LiNewNoInit(LI_HEAD *head);

/* Takes a zeroed record that is a one-element chain and stores it in *out.
 * Returns PA_NO_MEMORY, leaving *out untouched, when the store cannot grow
 * (or head or out is null). */
POLYARC_EXTERN uint16_t LiNew(LI_HEAD *head, LI_TAB_STRUCT **out);

/* Unchains e from the contour *kont and puts it on the free list. When e
 * is the first element, *kont moves to its successor (null when e was the
 * only element). */
POLYARC_EXTERN void LiDel(LI_HEAD *head, LI_TAB_STRUCT **kont, LI_TAB_STRUCT *e);

/* Gives the whole contour *kont back to the free list in constant time
 * after checking its links (LiCheck), and sets *kont to null. A broken
 * chain is reported once through DebugAssert and abandoned: nothing is
 * freed, *kont is still cleared. A null *kont does nothing. */
POLYARC_EXTERN void LiRemove(LI_HEAD *head, LI_TAB_STRUCT **kont);

/* Gives the chain that starts at first back to the free list without
 * checking it, in constant time. A null first does nothing. */
POLYARC_EXTERN void LiRemoveUnchecked(LI_HEAD *head, LI_TAB_STRUCT *first);

/* Returns all memory of the store to the memory service and leaves it
 * empty and usable again. Every element pointer into it dangles. */
POLYARC_EXTERN void LiFreeMem(LI_HEAD *head);

/* Takes e out of its chain (its neighbours are linked to each other) and
 * makes it a one-element chain. */
POLYARC_EXTERN void LiUnchain(LI_TAB_STRUCT *e);

/* Splices the whole chain that holds b in front of a (at the end of the
 * contour that a heads): ..., a.prev, b, ..., b.prev, a, ... When a and b
 * are in the same chain, the chain is split in two instead. */
POLYARC_EXTERN void LiChainPrev(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b);

/* Cuts the run first..last (following next) out of its chain into a
 * circular chain of its own. *kont becomes the element that followed the
 * run, whatever it was before, or null when the run was the whole chain. */
POLYARC_EXTERN void LiUnchainBlock(LI_TAB_STRUCT **kont, LI_TAB_STRUCT *first, LI_TAB_STRUCT *last);

/* LiUnchainBlock, then gives the run back to the free list with LiRemove. */
POLYARC_EXTERN void LiDelBlock(LI_HEAD *head, LI_TAB_STRUCT **kont, LI_TAB_STRUCT *first,
                               LI_TAB_STRUCT *last);

/* ---- Chains, insertion and copying ------------------------------------ */

/* Splices the whole chain that holds b directly after a: a, b, ...,
 * b.prev, a.next, ... Nothing happens when b is a. */
POLYARC_EXTERN void LiChain(LI_TAB_STRUCT *a, LI_TAB_STRUCT *b);

/* Appends the chain to the contour *kont (it becomes the contour when *kont
 * is null). When the contour's end and the chain's start differ by tol or
 * more in x or y, a bridging move (type 2, not expanded) is appended first.
 * Returns 0, or PA_NO_MEMORY when the bridge cannot be had (the chain then
 * stays unjoined). A null chain does nothing. */
POLYARC_EXTERN uint16_t LiChain2(LI_HEAD *head, LI_TAB_STRUCT **kont, LI_TAB_STRUCT *chain);

/* Appends a new zeroed element (type 0) to the contour *kont and returns it
 * in *out for the caller to fill. Returns 0 or PA_NO_MEMORY (nothing
 * changed). */
POLYARC_EXTERN uint16_t LiEnlarge(LI_HEAD *head, LI_TAB_STRUCT **kont, LI_TAB_STRUCT **out);

/* Appends a copy of e to the contour *kont: geometric fields, attr_val,
 * attr_id and no are copied (derived fields are not recomputed), mark is
 * cleared. Returns 0 or PA_NO_MEMORY. */
POLYARC_EXTERN uint16_t LiInsertElem2(LI_HEAD *head, LI_TAB_STRUCT **kont, const LI_TAB_STRUCT *e);

/* As LiInsertElem2, but an element whose ends coincide within tol per axis
 * (whatever its type, so also a full circle) is skipped with status 0. */
POLYARC_EXTERN uint16_t LiInsertElem(LI_HEAD *head, LI_TAB_STRUCT **kont, const LI_TAB_STRUCT *e);

/* Copies the run first..last (following next; first == last copies one
 * element) into a new circular chain of whole-record copies and returns its
 * first element; the caller owns it. Returns null when the store cannot
 * grow (no record is lost) or first is null. A last that is not reached
 * copies the whole chain of first. */
POLYARC_EXTERN LI_TAB_STRUCT *LiCopyBlock(LI_HEAD *head, const LI_TAB_STRUCT *first,
                                          const LI_TAB_STRUCT *last);

/* Copies the contour src. Into an empty *dst: a new chain, 0 or
 * PA_NO_RECORD. Into an existing *dst: its elements are overwritten in
 * place (all fields but the links) and 0 is returned only when both
 * chains have the same length; otherwise PA_NO_MEMORY after the common
 * prefix was written. A null src copies as an empty contour. */
POLYARC_EXTERN uint16_t LiCopy(LI_HEAD *head, const LI_TAB_STRUCT *src, LI_TAB_STRUCT **dst);

/* The successor and the predecessor of e (null for a null e). */
POLYARC_EXTERN LI_TAB_STRUCT *LiSucc(const LI_TAB_STRUCT *e);
POLYARC_EXTERN LI_TAB_STRUCT *LiPred(const LI_TAB_STRUCT *e);

/* 1 when every element from k round to k has a non-null successor whose
 * prev is the element, 0 at the first violation (and for a null k). */
POLYARC_EXTERN int LiCheck(const LI_TAB_STRUCT *k);

/* PA_IMPOSSIBLE when the contour holds a move or an arc with rad < -tol;
 * 0 otherwise, also for a null contour. */
POLYARC_EXTERN uint16_t LiCheckValid(const LI_TAB_STRUCT *k);

/* ---- Numbering, search and number lists ------------------------------ */

/* A number list: entry 0 holds the count, entries 1..count the numbers in
 * the order they were added, without duplicates. At most 103 numbers fit
 * in its LI_NUM_LIST_SIZE entries. A zeroed array is an empty list. */
enum { LI_NUM_LIST_SIZE = 104 };

/* Numbers the elements in chain order: the counter is incremented, then
 * stored in no, so numbering runs on across contours. Returns 0. */
POLYARC_EXTERN uint16_t LiNumKont(LI_TAB_STRUCT *k, uint16_t *counter);

/* *out becomes the first element from k whose no is n, or null. */
POLYARC_EXTERN void LiSuchNo(LI_TAB_STRUCT *k, uint16_t n, LI_TAB_STRUCT **out);

/* The first element from start whose no is n, searching up to but not
 * including stop (stop is examined only when it is start); null when none
 * or start is null. Also stored in *out when out is not null. */
POLYARC_EXTERN LI_TAB_STRUCT *LiSuchNoFrom(LI_TAB_STRUCT *stop, LI_TAB_STRUCT *start, uint16_t n,
                                           LI_TAB_STRUCT **out);

/* From ea on in contour A (up to ka), finds the first element whose number
 * occurs in contour B from sb up to kb; *out_a and *out_b receive the
 * predecessors of the two matching elements, or the last elements of A and
 * B when nothing matches. Returns 0. */
POLYARC_EXTERN uint16_t LiSuchNextPair(LI_TAB_STRUCT *ka, LI_TAB_STRUCT *kb, LI_TAB_STRUCT *ea,
                                       LI_TAB_STRUCT *sb, LI_TAB_STRUCT **out_a,
                                       LI_TAB_STRUCT **out_b);

/* The 1-based position of n in the list, or 0. */
POLYARC_EXTERN uint16_t LiNumInListe(const uint16_t *list, uint16_t n);

/* Removes n from the list (absent numbers change nothing). Returns 0. */
POLYARC_EXTERN uint16_t LiNumAusListe(uint16_t *list, uint16_t n);

/* Appends n unless present (then 0). PA_LIST_FULL, list unchanged, when
 * the count would reach LI_NUM_LIST_SIZE. */
POLYARC_EXTERN uint16_t LiNumAufListe(uint16_t *list, uint16_t n);

/* Adds the numbers of src to dst in order; stops at the first failure and
 * returns its status (PA_LIST_FULL), else 0. */
POLYARC_EXTERN uint16_t LiLtAufLt(uint16_t *dst, const uint16_t *src);

/* ---- Contour queries -------------------------------------------------- */

/* 1 when e is an element of the contour k, else 0 (also for a null k). */
POLYARC_EXTERN int LiElemInKont(const LI_TAB_STRUCT *k, const LI_TAB_STRUCT *e);

/* The number of elements; 0 for a null contour. */
POLYARC_EXTERN uint32_t LiCountElem(const LI_TAB_STRUCT *k);

/* 1 when, walking from k, a is met before b; 0 when b is met first or a
 * is b; 1 when neither is in the contour (or k is null). */
POLYARC_EXTERN int LiUtVorNach(const LI_TAB_STRUCT *k, const LI_TAB_STRUCT *a,
                               const LI_TAB_STRUCT *b);

/* The side to which b leaves the end of a: +1 left, -1 right, by the cross
 * product of the tangents beyond 5e-09; with parallel tangents 0 for a line
 * b, else the turn of the arc b (reversed when it starts backwards). */
POLYARC_EXTERN int16_t LiNextSide(const LI_TAB_STRUCT *a, const LI_TAB_STRUCT *b);

/* 1 when the contour is one full circle: its first element is an arc that
 * starts where its predecessor ends, and every element has the first's
 * type, centre and radius within tol. 0 otherwise and for null. */
POLYARC_EXTERN int LiCheckRund(const LI_TAB_STRUCT *k);

/* 1 when a gap follows e (its ep and its successor's ap differ by tol or
 * more in x or y), else 0. */
POLYARC_EXTERN int LiLastElem(const LI_TAB_STRUCT *e);

/* Foot of p on the line through e's ap along tan_ap (for an arc, its
 * tangent at the start). Returns 0. */
POLYARC_EXTERN uint16_t LiNormPt(const LI_TAB_STRUCT *e, const GE_POINT *p, GE_POINT *out);

/* ---- Containment ------------------------------------------------------ */

/* Results of LiPointInKont. */
enum { LI_PT_ON = 0, LI_PT_INSIDE = 1, LI_PT_OUTSIDE = 65535 };

/* Where p lies against the closed contour k, by the angle that k turns
 * round p (either orientation, arcs unsplit): LI_PT_ON within tol of k,
 * LI_PT_INSIDE when the turn is at least pi in size, else LI_PT_OUTSIDE
 * (also for a null k or p). A one-element full circle is decided by the
 * distance from its centre. Otherwise the walk starts at k's first start
 * point and takes each element's chord from where the previous counted
 * element ended: consecutive lines with p on one side are merged into one
 * straight run (a line that joins or starts a run moves the walk on to its
 * end, so a row split into many pieces turns as the whole row); an arc
 * adds its chord's turn and, when p lies between the arc and its chord,
 * a full turn the other way; p on an arc's chord line between its ends
 * adds pi in the arc's sense. Deliberately: elements whose chord is not
 * longer than tol are skipped (a full circle inside a longer contour too),
 * arcs with a negative radius count as their chord, moves count as lines,
 * and a point on a line's carrier beyond the line is not on it. One pass
 * over k. */
POLYARC_EXTERN uint16_t LiPointInKont(const LI_TAB_STRUCT *k, const GE_POINT *p);

/* 1 when every vertex (start point) of inner, and for an open inner its
 * end point, lies inside or on outer by LiPointInKont, else 0 (also for a
 * null inner). Edges are not tested, deliberately: an edge that leaves
 * outer between two inside vertices is not seen. The answers are
 * LiPointInKont's; for a closed outer contour of two elements or more a
 * tree of boxes over its chain answers each vertex that keeps 16
 * tolerances (plus any gap or run of skipped elements before the nearest
 * element) away from every element in logarithmic time, and only nearer
 * vertices are walked. Without memory for the tree every vertex is
 * walked. */
POLYARC_EXTERN int LiKontInKont(const LI_TAB_STRUCT *inner, const LI_TAB_STRUCT *outer);

/* 1 when inner lies inside (or on) outer, edges included, else 0: 0 when
 * the boxes (the contours' LiKontBox corners) do not nest within tol,
 * then 0 when LiKontInKont is 0; then the crossings of inner with outer
 * (FlCrossList(inner, outer), in inner's order) cut inner's crossed
 * elements into pieces, and 0 when the point halfway along a piece (on an
 * arc, halfway along it) lies outside outer, a point on the gap that
 * closes an open outer counting as on it. A crossing list that cannot be
 * made counts as no crossing (1); a crossing that FlSeekPt cannot place
 * gives 0. Null arguments give 0. The list is always freed. */
POLYARC_EXTERN int LiKontExactInKont(const LI_TAB_STRUCT *inner, const LI_TAB_STRUCT *outer,
                                     const GE_POINT *inner_min, const GE_POINT *inner_max,
                                     const GE_POINT *outer_min, const GE_POINT *outer_max);

/* ---- Contour construction --------------------------------------------- */

/* Appends a move to p (type 2, ap = ep = p, not expanded), unless p
 * coincides with the contour's end within tol per axis (then 0 and nothing
 * added). Returns 0 or PA_NO_MEMORY. */
POLYARC_EXTERN uint16_t LiMove(LI_HEAD *head, LI_TAB_STRUCT **kont, const GE_POINT *p);

/* Draws a line from the contour's end to p. A trailing move becomes the
 * line in place. p within tol per axis of the end adds nothing (0).
 * Returns the status of LiElemExpand, PA_NO_MEMORY, or PA_INVALID for a
 * null kont, an empty contour or a null p. */
POLYARC_EXTERN uint16_t LiDraw(LI_HEAD *head, LI_TAB_STRUCT **kont, const GE_POINT *p);

/* Gives the contour back (if any) and makes it the single line p1 -> p2.
 * Returns the status of LiElemExpand (PA_ZERO_LENGTH for p1 == p2) or
 * PA_NO_MEMORY. */
POLYARC_EXTERN uint16_t LiDrawNew(LI_HEAD *head, LI_TAB_STRUCT **kont, const GE_POINT *p1,
                                  const GE_POINT *p2);

/* Draws an arc about cen from the contour's end to p: clockwise (type 3)
 * for any non-zero dir, counter-clockwise (type 4) for 0. The radius is
 * the mean of both ends' distances from cen. Returns PA_INVALID when the
 * distances differ by more than tol, or for a null kont, empty contour or
 * null point; 0 without adding anything when p is the end point (a full
 * circle cannot be drawn this way); else the status of LiElemExpand or
 * PA_NO_MEMORY. */
POLYARC_EXTERN uint16_t LiArc(LI_HEAD *head, LI_TAB_STRUCT **kont, const GE_POINT *p,
                              const GE_POINT *cen, int32_t dir);

/* Starts a new contour in *kont (whatever it held is not given back, so
 * pass an empty handle) and draws the clockwise rectangle of half width a
 * and half height b centred on the origin: a move to (-a, b), then lines
 * to (a, b), (a, -b), (-a, -b), (-a, b). Takes its records from head.
 * Returns 0, PA_NO_MEMORY (the elements drawn so far stay in *kont), or
 * PA_INVALID for a null kont. */
POLYARC_EXTERN uint16_t LiCreateRect(LI_HEAD *head, LI_TAB_STRUCT **kont, double a, double b);

/* As LiCreateRect, but with corners rounded by clockwise arcs of radius r:
 * four lines and four arcs from (r - a, b), clockwise. Edges of zero length
 * (r equal to a or b) and arcs of radius 0 are left out. Statuses as for
 * LiCreateRect. */
POLYARC_EXTERN uint16_t LiCreateRound(LI_HEAD *head, LI_TAB_STRUCT **kont, double a, double b,
                                      double r);

/* Fills the caller's element e (no store involved; links and payload are
 * not touched) with the full circle of radius r about cen, starting and
 * ending at its rightmost point: clockwise (type 3) for dir 2, else
 * counter-clockwise (type 4). Returns the status of LiElemExpand
 * (PA_ZERO_RADIUS for |r| < tol), or PA_INVALID for a null argument. */
POLYARC_EXTERN uint16_t LiCreateCircle(const GE_POINT *cen, double r, uint16_t dir,
                                       LI_TAB_STRUCT *e);

/* Moves e in place to the parallel element at distance d to the left of
 * its travel (side +1) or to the right (side -1): the ends move along the
 * stored tangents' normals, rad changes by the offset, and the box is
 * recomputed; centre, tangents and angles stay (no check that an arc's
 * radius stays positive). Returns 0, or PA_INVALID for a null e. */
POLYARC_EXTERN uint16_t LiParElem(LI_TAB_STRUCT *e, int16_t side, double d);

/* Offsets e in place by a distance that runs linearly from d0 at the start
 * to d1 at the end, to the left for side +1 (right for -1). A line (any
 * type but 3 and 4) gets new ends and is re-expanded. An arc becomes the
 * arc (GeArc3Points) through the start of its parallel at d0, the middle
 * of its parallel at (d0 + d1) / 2 and the end of its parallel at d1,
 * keeping its type. Returns the status of LiElemExpand, the status of
 * GeArc3Points when it fails (e is then unchanged), or PA_INVALID for a
 * null e. */
POLYARC_EXTERN uint16_t LiConicElem(LI_TAB_STRUCT *e, int16_t side, double d0, double d1);

/* Recomputes the derived fields of e from its type, ap, ep (and mp, rad for
 * arcs), box included. Returns 0, PA_ZERO_LENGTH for a line or move of
 * exactly zero length (direction left zero), or PA_ZERO_RADIUS for an arc
 * with |rad| < tol (tangents left zero, box still computed). Other types
 * only get their box. PA_INVALID for a null e. */
POLYARC_EXTERN uint16_t LiElemExpand(LI_TAB_STRUCT *e);

/* LiElemExpand for a line or move (e is expanded as a line whatever its
 * type). */
POLYARC_EXTERN uint16_t LiElemExpandDrawVectorized(LI_TAB_STRUCT *e);

/* ---- Element measures and splitting ----------------------------------- */

/* Writes e's box: the tight box of the element (an arc's own extent, a full
 * circle's whole circle) pushed outwards by tol on every side. Types other
 * than arcs are boxed as the segment ap-ep. */
POLYARC_EXTERN void LiElemBox(LI_TAB_STRUCT *e);

/* The tight box of e without the tolerance margin, in *lo and *hi. */
POLYARC_EXTERN void LiElemRealBox(const LI_TAB_STRUCT *e, GE_POINT *lo, GE_POINT *hi);

/* Reverses e's direction of travel in place: ends, end angles and tangents
 * are exchanged (tangents negated), arc types 3 and 4 swap, and a line's
 * normal, rad and parameters are turned round. Nothing is recomputed, and
 * reversing twice restores an expanded element exactly. */
POLYARC_EXTERN void LiElemUmdreh(LI_TAB_STRUCT *e);

/* Length of e: ang_ep - ang_ap for non-arcs, the swept angle times rad for
 * arcs, 2 pi rad for an arc whose ends coincide within tol per axis.
 * 0 for a null e. */
POLYARC_EXTERN double LiElemLen(const LI_TAB_STRUCT *e);

/* The point at fraction u of the way along e: ap for u < 0, ep for u > 1.
 * An arc with equal end angles (a full circle) has sweep 0 and gives ap for
 * every u. (0, 0) for a null e. */
POLYARC_EXTERN GE_POINT LiElemPt(const LI_TAB_STRUCT *e, double u);

/* Sum of LiElemLen over the contour; 0 for a null contour. */
POLYARC_EXTERN double LiKontLen(const LI_TAB_STRUCT *k);

/* Cuts e at p (assumed on e): e keeps the piece up to p and a new element,
 * taken from head and chained directly after e, holds the piece from p on;
 * both are re-expanded. *out receives the element that starts at p: e when
 * p is within tol per axis of ap, e's successor when within tol of ep
 * (nothing cut in both cases), else the new element. Returns 0,
 * PA_NO_RECORD when the store cannot grow (*out = null, e unchanged), or
 * PA_INVALID for a null e, out or p. */
POLYARC_EXTERN uint16_t LiElemSplit(LI_HEAD *head, LI_TAB_STRUCT *e, LI_TAB_STRUCT **out,
                                    const GE_POINT *p);

/* Cuts e at p (assumed on e): a new element, taken from head and chained
 * directly before e, holds the piece up to p, and e keeps the piece from p
 * on. Arc pieces then get their own centres (LiRadKorr; a failed
 * correction keeps the old centre) and both pieces are re-expanded.
 * *out receives the element that ends at p: e's predecessor when p is
 * within tol per axis of ap, e when within tol of ep (nothing cut in both
 * cases), else the new element. Returns 0, PA_ZERO_RADIUS after cutting an
 * arc with |rad| < tol (uncorrected), PA_NO_RECORD when the store cannot
 * grow (*out = null, e unchanged), or PA_INVALID for a null e, out or p. */
POLYARC_EXTERN uint16_t LiElemTeilen(LI_HEAD *head, LI_TAB_STRUCT *e, LI_TAB_STRUCT **out,
                                     const GE_POINT *p);

/* Moves an arc's centre so that both ends lie at distance rad from it: to
 * the crossing of the circles of radius rad about ap and ep nearer the old
 * centre (the first on a tie), or, when ap and ep are more than 2 rad
 * apart, to the chord's middle with rad half the chord. Nothing changes
 * when |rad| <= tol, ap and ep coincide within tol per axis, or both ends
 * are already within tol of the circle. Derived fields are not recomputed
 * (call LiElemExpand). Returns 0, the status of GeIseCirCir, or PA_INVALID
 * for a null e or one that is not an arc (type 3 or 4). */
POLYARC_EXTERN uint16_t LiRadKorr(LI_TAB_STRUCT *e);

/* 1 when p lies on e: within tol (by distance) of an end; else within tol
 * of the carrier (an arc's circle of radius rad) and, for a line, within
 * tol of its parameter range, for an arc exactly inside its angle range
 * (every angle for equal end angles). 0 otherwise, and for null input. */
POLYARC_EXTERN int LiPtOnElem(const LI_TAB_STRUCT *e, const GE_POINT *p);

/* The first element of the contour, in chain order from k, on which p lies
 * (LiPtOnElem): stored in *out, result 1. A point at a joint belongs to the
 * earlier element. None: *out = null, result 0. A null k or p gives 0 and
 * leaves *out untouched; out may be null. */
POLYARC_EXTERN int LiPtOnKont(LI_TAB_STRUCT *k, const GE_POINT *p, LI_TAB_STRUCT **out);

/* 1 when q lies on the stretch of the contour that runs forwards from p1 to
 * p2, else 0 (also for null input or when p1 or p2 is not on the contour).
 * The search for p2 starts at p1's element and ends with the first element
 * k; when p1 lies on k, k is looked at once more after a full circuit, and
 * p1 == p2 at k's start spans the whole contour. */
POLYARC_EXTERN int LiPtInIntervall(LI_TAB_STRUCT *k, const GE_POINT *p1, const GE_POINT *p2,
                                   const GE_POINT *q);

/* ---- Contour measures and transforms ---------------------------------- */

/* Reverses the contour's direction of travel: every element is reversed
 * (LiElemUmdreh) and its links exchanged. A closed contour keeps its first
 * element; an open one (a gap after the first element once reversed)
 * moves *kont to its old last element, so that it starts at its old end. */
POLYARC_EXTERN void LiKontChgDir(LI_TAB_STRUCT **kont);

/* The signed area, positive for a counter-clockwise contour: the trapezoid
 * under each element's chord (moves count like lines) plus or minus each
 * arc's segment (GeArcArea); an arc whose ends coincide within tol counts
 * as its whole disc, +pi rad^2 counter-clockwise, -pi rad^2 clockwise.
 * 0 for a null contour. An open contour is closed by its chord. */
POLYARC_EXTERN double LiKontArea(const LI_TAB_STRUCT *k);

/* The union of the elements' stored boxes (tolerance margin included) in
 * *lo and *hi. A null contour leaves the outputs untouched. */
POLYARC_EXTERN void LiKontBox(const LI_TAB_STRUCT *k, GE_POINT *lo, GE_POINT *hi);

/* The union of the elements' tight boxes (LiElemRealBox), no margin. */
POLYARC_EXTERN void LiKontRealBox(const LI_TAB_STRUCT *k, GE_POINT *lo, GE_POINT *hi);

/* Position against the x-axis from LiKontBox: *pos = 1 above (ymin > -tol
 * and ymax > tol), -1 below (ymax < tol and ymin < -tol), else 0, so a
 * contour touching the axis gives 0. Returns 0. */
POLYARC_EXTERN uint16_t LiKontPos(const LI_TAB_STRUCT *k, int16_t *pos);

/* Mirrors the contour in the x-axis: y of ap, ep and mp negated, arc
 * senses exchanged, every element re-expanded. Returns the status of the
 * last expansion (0 for a null contour). */
POLYARC_EXTERN uint16_t LiMirror(LI_TAB_STRUCT *k);

/* Moves every point by p1, then rotates it by a radians (counter-clockwise
 * for a > 0) about p2, re-expanding each element; stops at the first
 * non-zero expansion status and returns it. */
POLYARC_EXTERN uint16_t LiMoveRotKont(LI_TAB_STRUCT *k, const GE_POINT *p1, const GE_POINT *p2,
                                      double a);

/* Closes every gap (an ep that does not coincide with its successor's ap,
 * the last element's included) with a new line chained after the element;
 * a line that cannot be expanded is not kept. Returns the status of the
 * last gap handled: 0, PA_NO_MEMORY or the expansion status. */
POLYARC_EXTERN uint16_t LiCloseKont(LI_HEAD *head, LI_TAB_STRUCT *k);

/* As LiCloseKont, but every gap is closed through the x-axis: a vertical
 * line down (or up) to the axis when the gap's start is off it, a line
 * along the axis, and a vertical line to the gap's end when that is off
 * it. A line of zero length is not kept (its PA_ZERO_LENGTH counts).
 * Returns the status of the last allocation or expansion. */
POLYARC_EXTERN uint16_t LiCloseKontToY0(LI_HEAD *head, LI_TAB_STRUCT *k);

/* 1 when the contour has no gap (a null contour counts as closed); else 0,
 * and *kont moves to the element after the first gap, so that an open
 * contour starts at its gap. */
POLYARC_EXTERN int LiCheckClosed(LI_TAB_STRUCT **kont);

/* LiCheckClosed without moving the handle. */
POLYARC_EXTERN int LiTestClosed(const LI_TAB_STRUCT *k);

/* Cuts the closed contour *kont at q1 on the element numbered num1 and at
 * q2 on the element numbered num2 (LiElemTeilen; when the numbers are
 * equal, q2 is looked for on the piece after q1 first) into two open
 * circular chains: *out1 runs from q1 to q2, *out2 from q2 to q1, and
 * *kont becomes null. Returns 0; PA_INVALID when a number is not found,
 * both cuts fall on one point, or an argument is null; a cutting status
 * (PA_NO_RECORD, PA_ZERO_RADIUS) as it is. After a failed second cut the
 * contour is left whole in *kont, cut at q1. */
POLYARC_EXTERN uint16_t LiSplitKont(LI_HEAD *head, LI_TAB_STRUCT **kont, LI_TAB_STRUCT **out1,
                                    LI_TAB_STRUCT **out2, uint16_t num1, const GE_POINT *q1,
                                    uint16_t num2, const GE_POINT *q2);

/* Sorts loosely ordered elements into one connected chain. The first
 * element stays; the others are searched from the head for one whose start
 * meets the chain's end, (reversed) whose end meets it, whose end meets
 * the chain's start (prepended, *kont moves to it), or (reversed) whose
 * start meets it. keep_dir 0 allows reversing at once; non-zero only after
 * a search without reversing found nothing. stop_closed non-zero stops
 * once the chain is closed (and at once for a full circle). Returns the
 * elements left over as a chain the caller owns, or null. */
POLYARC_EXTERN LI_TAB_STRUCT *LiSortKont(LI_TAB_STRUCT **kont, int32_t keep_dir,
                                         int32_t stop_closed);

/* Extends the contour by len at both ends along its end tangents: an end
 * line or move is lengthened in place (and re-expanded), an end arc gets a
 * new line (a new first element at the start). When the start fails, its
 * status is returned at once: an end line is still lengthened but not
 * re-expanded, and no new end line is made. A new line that cannot be
 * expanded is given back. Returns 0, PA_NO_MEMORY, PA_ZERO_LENGTH or
 * PA_ZERO_RADIUS; an empty contour is left alone (0). */
POLYARC_EXTERN uint16_t LiVerlKont(LI_HEAD *head, LI_TAB_STRUCT **kont, double len);

/* Extends the contour by len along its tangent at the start (at_start
 * non-zero) or at the end, as LiVerlKont does at one end. A negative len
 * shortens an end line. Returns 0, PA_NO_MEMORY or the expansion status. */
POLYARC_EXTERN uint16_t LiElemVerl(LI_HEAD *head, LI_TAB_STRUCT **kont, double len,
                                   int32_t at_start);

/* ---- Point finding and contour distance ------------------------------- */

/* The first element from k in chain order that carries p, or null (also
 * for a null k or p). An arc carries p within tol of its circle when p is
 * within tol of an end, the arc is a full circle, or p's angle is in its
 * range (exactly, bounds included). A line or move carries p within
 * 10 x tol across it and tol along it: p within tol of an end, or strictly
 * between its ends. So a joint point belongs to the earlier element. */
POLYARC_EXTERN LI_TAB_STRUCT *LiKontFindPt(LI_TAB_STRUCT *k, const GE_POINT *p);

/* As LiKontFindPt, but elements with an end within tol per axis of p are
 * passed over: the first element that carries p in its interior (arc
 * ranges strict, points within tol of an arc's end excluded; a full circle
 * carries every other point of its circle), or null. */
POLYARC_EXTERN LI_TAB_STRUCT *LiKontFindPtIgnoreApEp(LI_TAB_STRUCT *k, const GE_POINT *p);

/* As LiKontFindPt with eps in place of tol in every test, the distance
 * across a line included (no factor 10); only the full-circle test keeps
 * the global tol. */
POLYARC_EXTERN LI_TAB_STRUCT *LiKontFindPtUniformDistEpsi(LI_TAB_STRUCT *k, const GE_POINT *p,
                                                          double eps);

/* The two pieces of contour that meet at p, found with LiKontFindPt. When
 * p is an element's start, *pafter is that element and *pbefore its
 * predecessor (null when a gap separates them); at an element's end,
 * *pbefore is it and *pafter its successor (null across a gap); inside an
 * element both point to it. before and after receive the geometric fields
 * of the pieces, cut at p when p is inside (the contour is not changed).
 * Returns 0, PA_IMPOSSIBLE when no element carries p (both pointers null),
 * PA_INVALID for null arguments, or the status of LiElemExpand of a cut
 * piece (the first piece is recomputed first; when it fails, after holds
 * the second piece cut but not recomputed). */
POLYARC_EXTERN uint16_t LiKontNextElem(LI_TAB_STRUCT *k, const GE_POINT *p, GE_LI_ELEM *before,
                                       GE_LI_ELEM *after, LI_TAB_STRUCT **pbefore,
                                       LI_TAB_STRUCT **pafter);

/* Distance from p to the contour k: every element in chain order is
 * measured with GePtDrawDist (lines and moves) or GePtArcDist (any other
 * type), and an element replaces the best so far when it is not farther,
 * so of equally near elements the last wins. *foot, *elem, *dist and *aux
 * (the element's parameter or angle of the foot) describe the winner.
 * Returns 0, the first non-zero status of a distance function (the
 * outputs then hold the best so far), or PA_INVALID for a null contour or
 * argument (outputs untouched). */
POLYARC_EXTERN uint16_t LiPtKontDist(LI_TAB_STRUCT *k, const GE_POINT *p, GE_POINT *foot,
                                     LI_TAB_STRUCT **elem, double *dist, double *aux);

/* Distance between the contours ka and kb over every pair of elements, A's
 * in chain order and for each B's in chain order, measured with
 * GeDrawDrawDist, GeDrawArcDist (either way round) or GeArcArcDist. A pair
 * replaces the best only when nearer by more than tol / 2, so of equally
 * (or nearly equally) near pairs the first is kept. The outputs receive
 * the best pair's foot points, elements and auxiliary values (parameter or
 * angle) on A and B, and its distance. Returns 0, the first non-zero status
 * of a distance function (outputs hold the best so far), or PA_INVALID for
 * a null contour or argument (outputs untouched). */
POLYARC_EXTERN uint16_t LiKontKontDist(LI_TAB_STRUCT *ka, LI_TAB_STRUCT *kb, GE_POINT *foot_a,
                                       LI_TAB_STRUCT **elem_a, double *aux_a, GE_POINT *foot_b,
                                       LI_TAB_STRUCT **elem_b, double *aux_b, double *dist);

/* ---- Correction and cleaning ----------------------------------------- */

/* Moves the start of the contour's first element e to p. When p lies on
 * e's tangent line at the start (tan_ap is, per component within tol, the
 * unit vector from p to ap or its opposite), a line or move gets ap = p and
 * any other element a new line p -> ap in front of it, which becomes the
 * first element. Otherwise an arc whose circle passes within tol of p gets
 * ap = p, unless p is its end. Returns 0 (also for an empty contour or p at
 * ap), PA_IMPOSSIBLE when p cannot be reached that way, PA_NO_MEMORY, the
 * status of LiElemExpand, or PA_INVALID for a null kont or p. */
POLYARC_EXTERN uint16_t LiKorrElem(LI_HEAD *head, LI_TAB_STRUCT **kont, const GE_POINT *p);

/* Removes tiny elements and re-joins the rest. Contours of fewer than two
 * elements are left alone. In one pass in chain order, a line (type 1)
 * whose chord is below 10 x tol is deleted, and so is any other element
 * (moves included) unless |rad| >= 10 x tol and its chord is at least
 * 10 x tol or it is the only element left. If two or more remain, every
 * element's ep is set to its successor's ap (an open contour, closed == 0,
 * keeps its last element's end), and each is recomputed: an arc gets |rad|
 * and LiRadKorr, then, if that gave 0, LiElemExpand. Returns the status of
 * the last element recomputed (0 when nothing was), or PA_INVALID for a
 * null head or kont. */
POLYARC_EXTERN uint16_t LiKorrKont(LI_HEAD *head, LI_TAB_STRUCT **kont, int32_t closed);

/* Removes elements smaller than min and re-joins. Contours of fewer than
 * two elements are left alone. With flatten set, an arc whose length
 * differs from its chord by less than min and whose sagitta
 * (1 - cos(sweep / 2)) rad is below min becomes a line. Then, in one pass,
 * a line or move whose chord is below min is deleted, and so is any other
 * element with min > rad or a chord below min, never the last one left; an
 * element kept after deletions gets the previous kept element's ep set to
 * its ap. If two or more remain: with closed set the last ep becomes the
 * first ap, and every element (all but the last of an open contour) is
 * recomputed, arcs with LiRadKorr and LiElemExpand, lines and moves with
 * LiElemExpandDrawVectorized. Returns the bitwise OR of all those statuses
 * (so not one status code), or PA_INVALID for a null head or kont. */
POLYARC_EXTERN uint16_t LiRemShort(LI_HEAD *head, LI_TAB_STRUCT **kont, int32_t closed, double min,
                                   int32_t flatten);

/* The choose function of LiCrunch: given the two elements about to be
 * merged (e and its successor n), returns the one whose payload (attr_val,
 * attr_id, no) the merged element keeps. */
typedef const LI_TAB_STRUCT *(*LI_CRUNCH_CHOOSE)(const LI_TAB_STRUCT *e, const LI_TAB_STRUCT *n);

/* Merges runs of elements that continue one another, scanning from k: e
 * absorbs its successor n (not k itself) while n has e's type,
 * GeElemTestParallel gives 1 or 2 (same carrier and sense, or a point-like
 * element) and e's ep coincides with n's ap within tol per axis. e then
 * takes n's payload when a choose function is set and does not return e,
 * gets n's ep (re-expanded) and keeps mark 1 only when both had it; n goes
 * back to the store. Nothing merges across k. Returns 0 (also for a null
 * k), or PA_INVALID for a null head. */
POLYARC_EXTERN uint16_t LiCrunch(LI_HEAD *head, LI_TAB_STRUCT *k);

/* Sets the choose function of every later LiCrunch in the process (null:
 * the first element keeps its payload) and returns the previous one, null
 * at first. Process-wide and unsynchronised: set it before concurrent use. */
POLYARC_EXTERN LI_CRUNCH_CHOOSE LiKontSetChooseForCrunchCB(LI_CRUNCH_CHOOSE choose);

/* ---- Corresponding contours ------------------------------------------ */

/* Makes two contours correspond element by element by their numbers (no),
 * in chain order: where one contour lacks a number of the other, a
 * zero-length line (type 1, at the start of the element it is put in front
 * of, with the other element's no, attr_val and attr_id) is inserted; an
 * element inserted in front of a contour's start becomes its start when its
 * partner is the other contour's start. Partners for the end of a contour
 * sit at its start point. Returns 0, PA_NOT_PAIRED for an empty contour, for
 * two different numbers that both lack a partner, or for numbers in a
 * different order; PA_NO_MEMORY when the store cannot grow (partners
 * inserted so far stay); PA_INVALID for a null k1 or k2. No temporary
 * element is left in either contour on any path. */
POLYARC_EXTERN uint16_t LiCoCoExpKont(LI_HEAD *head, LI_TAB_STRUCT **k1, LI_TAB_STRUCT **k2);

/* 1 when two corresponding elements can be blended: arcs of one type with
 * centres within tol per axis; lines (type 1) of which one is degenerate
 * (ends within tol per axis) or whose normals point the same way (dot
 * product above 0.999999995); an arc and a line when the arc's radius is
 * exactly 0 or the line is degenerate at the arc's centre. 0 otherwise,
 * moves and null elements included. */
POLYARC_EXTERN int LiCoCoCheckElem(const LI_TAB_STRUCT *e1, const LI_TAB_STRUCT *e2);

/* The element at fraction t between e1 and e2, as a new one-element chain
 * in *out that the caller owns: its ends are the blends p1 + t (p2 - p1)
 * of the two elements' ends. When either is an arc and the ends do not
 * coincide within tol per axis, it is the arc through its ends and the
 * blended midpoint of the two (GeArc3Points; a full-circle sense counts as
 * its arc type), else a line, also when no arc can be made. It is
 * expanded; a degenerate blend is handed out as it is. Returns 0,
 * PA_NO_MEMORY (*out untouched) or PA_INVALID for null arguments. */
POLYARC_EXTERN uint16_t LiCoCoFactElem(LI_HEAD *head, const LI_TAB_STRUCT *e1,
                                       const LI_TAB_STRUCT *e2, double t, LI_TAB_STRUCT **out);

/* The contour at fraction t between two corresponding contours (see
 * LiCoCoExpKont), blended pair by pair in chain order with LiCoCoFactElem;
 * each blend gets k1's number. *compatible becomes 1, and 0 from the first
 * pair that LiCoCoCheckElem refuses (the blend is made all the same).
 * Returns 0 with the new contour in *out; PA_INVALID when t is outside
 * [0, 1], a contour is empty, or *out is not null on entry; PA_NOT_PAIRED
 * when the numbers of a pair differ or the lengths differ; PA_NO_MEMORY.
 * On failure *out stays null: the blends made so far are given back. */
POLYARC_EXTERN uint16_t LiCoCoFactKont(LI_HEAD *head, const LI_TAB_STRUCT *k1,
                                       const LI_TAB_STRUCT *k2, double t, LI_TAB_STRUCT **out,
                                       uint32_t *compatible);

/* ---- Diagnostic dump ------------------------------------------------- */

/* Writes one line per element of k, in chain order, in the format
 * "%11p %2d %10g %10g %10g %10g %d\n": the element's address, type, ap x,
 * ap y, ep x, ep y and no, flushing the stream after each line. A null
 * stream means stderr; a null k writes nothing. Returns 0. */
POLYARC_EXTERN uint16_t LiDebDumpLi(const LI_TAB_STRUCT *k, FILE *stream);

/* Kept for old callers: ignore their argument, write nothing, return 0. */
POLYARC_EXTERN uint16_t LiDebLi(const LI_TAB_STRUCT *k);
POLYARC_EXTERN uint16_t LiDebElem(const LI_TAB_STRUCT *e);

#endif /* POLYARC_LI_H */
