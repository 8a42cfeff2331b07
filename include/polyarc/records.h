/* polyarc: the records shared by every family of the flat interface, the
 * status codes, and the export macro.
 *
 * All geometry is planar, in double precision and the caller's drawing
 * units; angles are radians, the y axis points up, and counter-clockwise
 * is the positive sense of rotation. */
#ifndef POLYARC_RECORDS_H
#define POLYARC_RECORDS_H

#include <stddef.h>
#include <stdint.h>

/* The version of these headers. The build reads its own version from
 * here; PaVersion gives the version of the library actually loaded. */
#define POLYARC_VERSION_MAJOR 0
#define POLYARC_VERSION_MINOR 1
#define POLYARC_VERSION_PATCH 0
#define POLYARC_VERSION_STRING "0.1.0"

#if defined(_WIN32)
#  if defined(POLYARC_BUILDING)
#    define POLYARC_API __declspec(dllexport)
#  else
#    define POLYARC_API __declspec(dllimport)
#  endif
#else
#  define POLYARC_API __attribute__((visibility("default")))
#endif
#ifdef __cplusplus
#  define POLYARC_EXTERN extern "C" POLYARC_API
#else
#  define POLYARC_EXTERN extern POLYARC_API
#endif

/* Status codes. Every operation that can fail returns one of these as an
 * unsigned 16-bit value; 0 is success. Some codes carry more than one
 * meaning; the aliases name them so that code reads as what it means. */
enum {
  PA_OK = 0,             /* success, or nothing to do */
  PA_NOT_ON = 1,         /* a result, not an error: not near, not on, outside the range */
  PA_NO_RECORD = 1001,   /* no record for a copy or a cut piece; a table overflowed */
  PA_NO_MEMORY = 1005,   /* the store cannot grow */
  PA_IMPOSSIBLE = 1005,  /* invalid content, failed search or impossible construction */
  PA_LIST_FULL = 1017,   /* a number list or crossing list is full */
  PA_ZERO_LENGTH = 2000, /* a line of zero length was expanded or constructed */
  PA_PARALLEL = 2011,    /* parallel lines have no intersection */
  PA_CONCENTRIC = 2014,  /* circles with coincident centres */
  PA_ZERO_RADIUS = 2339, /* an arc whose radius is below the tolerance */
  PA_NOT_PAIRED = 2360,  /* two contours cannot be paired element by element */
  PA_INVALID = 3011,     /* invalid argument or geometry */
  PA_DEGENERATE = 3014,  /* degenerate three-point configuration */
  PA_PARTIAL = 3072      /* partial result */
};

/* The meaning of a status code as a short constant English text, for
 * messages ("success", "out of memory, or an impossible construction or
 * failed search" for 1005, which has both meanings). Unknown codes give
 * "unknown status". Never null; the text is static and must not be freed. */
POLYARC_EXTERN const char *PaStatusText(uint16_t status);

/* The version of the loaded library, "MAJOR.MINOR.PATCH", as a static
 * string. Compare it with POLYARC_VERSION_STRING to detect a mismatch
 * between the headers a program was built with and the library it runs. */
POLYARC_EXTERN const char *PaVersion(void);

/* Element types. 19 and 20 appear only as full-circle codes of the arc
 * construction and arc-to-lines functions. */
enum {
  LI_LINE = 1,    /* straight segment from ap to ep */
  LI_MOVE = 2,    /* positioning element, not drawn */
  LI_ARC_CW = 3,  /* clockwise arc */
  LI_ARC_CCW = 4, /* counter-clockwise arc */
  LI_CIRCLE_CW = 19,
  LI_CIRCLE_CCW = 20
};

typedef struct GE_POINT {
  double x;
  double y;
} GE_POINT;

typedef struct GE_POINT3 {
  double x;
  double y;
  double z;
} GE_POINT3;

typedef struct GE_BOX {
  double xmin;
  double ymin;
  double xmax;
  double ymax;
} GE_BOX;

/* The geometric part of an element. For lines and moves mp holds the unit
 * normal (t.y, -t.x) of the direction t, rad the signed distance n.ap of
 * the carrier from the origin, and ang_ap / ang_ep the positions t.ap and
 * t.ep of the ends along the carrier. For arcs mp is the centre, rad the
 * radius and ang_ap / ang_ep the polar angles of the ends about mp, in
 * (-pi, pi]. box carries a margin of one tolerance on every side. All
 * fields but type, ap, ep (and mp, rad of arcs) are derived: only
 * LiElemExpand recomputes them.
 *
 * An arc whose ap and ep coincide within the tolerance in x and in y is a
 * full circle: it covers a full turn and every angle is in its range.
 *
 * An arc moved past its centre (LiParElem) has rad < 0. Its carrier point
 * at angle a is mp + rad (cos a, sin a), opposite the polar angle a, so
 * ang_ap / ang_ep hold the polar angles of the ends plus pi (brought back
 * into (-pi, pi]), and tan_ap / tan_ep the type's tangents divided by rad,
 * which point against the travel. The points it covers are those of the
 * circle of radius |rad| from ap to ep in its type's sense of rotation;
 * its box holds them and its length is |rad| times its sweep. Expanding,
 * cutting (LiElemSplit, LiElemTeilen) and LiRadKorr keep rad < 0 and these
 * angles, so that GePointOn finds every point of the arc on one of its
 * pieces. LiKorrKont turns such an arc into an ordinary one (rad = |rad|,
 * re-expanded) when it re-joins it. */
typedef struct GE_LI_ELEM {
  uint16_t type;
  GE_POINT ap;
  GE_POINT ep;
  GE_POINT mp;
  GE_BOX box;
  GE_POINT tan_ap;
  GE_POINT tan_ep;
  double rad;
  double ang_ap;
  double ang_ep;
} GE_LI_ELEM;

/* The element record: the geometric part, field for field as in
 * GE_LI_ELEM, followed by the chain links and the payload. Records belong
 * to an LI_HEAD store for their whole life. */
typedef struct LI_TAB_STRUCT {
  uint16_t type;
  GE_POINT ap;
  GE_POINT ep;
  GE_POINT mp;
  GE_BOX box;
  GE_POINT tan_ap;
  GE_POINT tan_ep;
  double rad;
  double ang_ap;
  double ang_ep;
  struct LI_TAB_STRUCT *next; /* successor; in the free list, the next free record */
  struct LI_TAB_STRUCT *prev; /* predecessor; meaningless in the free list */
  double attr_val;            /* payload, travels with the element */
  int32_t attr_id;            /* payload, travels with the element */
  uint16_t no;                /* element number */
  uint16_t mark;              /* scratch flag of the crossing code */
} LI_TAB_STRUCT;

/* The element store. A zero-initialised LI_HEAD is a valid empty store;
 * the caller owns it and frees its memory with LiFreeMem. */
typedef struct LI_HEAD {
  LI_TAB_STRUCT *free;    /* head of the free list, chained through next */
  LI_TAB_STRUCT **blocks; /* table of the blocks of records */
  uint32_t nblocks;       /* number of blocks */
} LI_HEAD;

/* Position codes of a point on an element (GePointOn). */
enum {
  GE_AT_START = 1, /* at ap, snapped to it */
  GE_AT_END = 2,   /* at ep, snapped to it */
  GE_INSIDE = 3,   /* strictly inside, or anywhere on a full circle */
  GE_BEFORE = 4,   /* on the carrier before the start */
  GE_BEYOND = 5    /* on the carrier beyond the end */
};

/* An intersection point with its parameter and position code on each of
 * the two elements that made it. */
typedef struct IsectPoint {
  double x;
  double y;
  double par1;
  double par2;
  uint16_t pos1;
  uint16_t pos2;
} IsectPoint;

/* A crossing between an element of contour A and an element of contour B
 * (or of one contour with itself), with its classification. The fields up
 * to reserved are exactly an IsectPoint as GeCross fills it. */
typedef struct GE_CROSS {
  GE_POINT pt;            /* the crossing point */
  double par_a;           /* parameter on elem_a: line position or polar angle */
  double par_b;           /* the same on elem_b */
  uint16_t loc_a;         /* position code on elem_a (GE_AT_START .. GE_INSIDE) */
  uint16_t loc_b;         /* position code on elem_b */
  uint32_t reserved;      /* copied with the point record, never read */
  LI_TAB_STRUCT *elem_a;  /* element of A that carries (after splitting: ends at) pt */
  LI_TAB_STRUCT *elem_b;  /* the same on B */
  LI_TAB_STRUCT *next_a;  /* after splitting: the element of A that starts at pt */
  LI_TAB_STRUCT *next_b;  /* the same on B */
  uint16_t mode;          /* FL_MODE_*: how B passes A here */
  uint16_t side;          /* +1, 0, or 65535 (-1): the side B lies off A */
  uint32_t rev;           /* 1 when B's overlapping half runs against A */
} GE_CROSS;

/* Crossing lists and contour lists are growable arrays from the
 * memory-block service, addressed by the index of their last entry:
 * FL_EMPTY (-1) while empty. A crossing list (GE_CROSS *, null while
 * empty) holds up to FL_CROSS_MAX entries in whole steps of FL_CROSS_STEP
 * (FlNewCross adds one step at a time, the list builders half the size so
 * far) and is freed with FlFreeCross. A contour list (LI_TAB_STRUCT **, one contour handle
 * per entry) holds result loops; FlFreeList gives its contours back and
 * frees it. */
enum { FL_EMPTY = -1, FL_CROSS_STEP = 16, FL_CROSS_MAX = 32767 };

/* Classification of a crossing (GE_CROSS.mode). */
enum {
  FL_MODE_CROSS = 0,      /* B passes from one side of A to the other */
  FL_MODE_JOIN = 1,       /* B joins A and runs along it (or leaves after running against it) */
  FL_MODE_LEAVE = 2,      /* B leaves A after running along it (or joins running against it) */
  FL_MODE_VOID = 3        /* a touch, a duplicate or cancelled: skipped from then on */
};

/* Operation codes of the crossing pipelines and Boolean operations. */
enum { FL_OP_UNION = 4, FL_OP_INTERSECTION = 5, FL_OP_DIFFERENCE = 6 };

#endif /* POLYARC_RECORDS_H */
