/* A frame grabber plug-in: what the author of one has to write, in C or C++. This header needs
 * nothing but itself.
 *
 * A plug-in is a dynamic library "MVVGPlug<name>.so" in the folder of Morvane's program, with the
 * prefix in exactly these letters. <name> is what the user chooses in the preferences. The library
 * exports MorvaneCreateGrabber, which gives a table of operations; Morvane finds each by its
 * position in the table, so the places in between stay, though nobody calls them.
 *
 *     gcc -shared -fPIC -o MVVGPlugCard.so Card.c
 *
 * Life. A chosen plug-in is created at the start of the program and released at its end. It is
 * released and created anew after its properties dialog and when the user has chosen another one;
 * Close is called at the end of the program only. The library stays in memory, so its variables
 * keep their values from one creation to the next.
 *
 * Threads. Every call comes on the thread of the windows, one at a time. Grab keeps the user
 * waiting while it runs. ShowProperties may run an event loop of its own; nothing else is called
 * meanwhile.
 *
 * Memory. Whoever made it keeps it: the table and Context are the plug-in's and last until Release;
 * the frame is Morvane's and is valid during Grab only.
 *
 * Errors. An operation that cannot do its work leaves its result as it is, which is 0 beforehand,
 * and returns. A C++ exception counts as that, too. Sizes and frames are checked before they are
 * used; but a plug-in runs inside the program, so one that writes beyond its frame, exits, or
 * crashes takes the open documents with it.
 */
#ifndef MORVANE_GRABBER_H
#define MORVANE_GRABBER_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Of this table and the meaning of its operations. Morvane takes plug-ins of this version only. */
#define MORVANE_GRABBER_VERSION 1u

/* Any value but 0 counts as true. */
typedef int16_t MorvaneBoolean;
#define MORVANE_FALSE ((MorvaneBoolean)0)
#define MORVANE_TRUE ((MorvaneBoolean)-1)

/* A place that is not called; NULL will do. */
typedef void (*MorvaneReserved)(void);

typedef struct MorvaneGrabber {
    uint32_t Version; /* MORVANE_GRABBER_VERSION */
    uint32_t Size; /* sizeof(MorvaneGrabber) */
    void* Context; /* the plug-in's own, first argument of every operation */

    /* The table is not used any more; what it and Context take may be freed. May be NULL. */
    void (*Release)(void* Context);

    MorvaneReserved Position1, Position2, Position3, Position4;

    /* 5: the bytes that Grab fills at most: header, colours and rows of a frame as told below. */
    void (*GetFrameBytes)(void* Context, int32_t* Bytes);

    MorvaneReserved Position6, Position7, Position8;

    /* 9 and 11: the size of a frame in pixels, at most 32767 in each axis. A size that is not above
     * 0 tells the user that the grabber is not ready. */
    void (*GetWidth)(void* Context, int32_t* Width);
    MorvaneReserved Position10;
    void (*GetHeight)(void* Context, int32_t* Height);

    MorvaneReserved Position12;

    /* 13: whether ShowProperties has a dialog to show. Read once, after the creation. May be
     * NULL: no dialog. */
    void (*GetHasProperties)(void* Context, MorvaneBoolean* HasProperties);

    MorvaneReserved Position14;

    /* 15: whether the card is there and frames can be had. Read once, after the creation. */
    void (*GetReady)(void* Context, MorvaneBoolean* Ready);

    /* 16: the program ends; called once, before Release, of a plug-in that was ready. May be
     * NULL. */
    void (*Close)(void* Context);

    /* 17: grabs one frame into Frame, which has room for *Bytes bytes, all 0, as many as
     * GetFrameBytes has told. The plug-in sets *Bytes to the number that it has filled, and
     * *Success to MORVANE_TRUE if there is a frame. Without success the user is told nothing
     * more: the plug-in knows what to say.
     *
     * A frame is a device independent bitmap, its numbers in little-endian order:
     *   offset 0   header of 40 bytes: int32 40; int32 width and int32 height, both as told by
     *              GetWidth and GetHeight; int16 planes 1; int16 bits of a pixel, 8 or 24;
     *              int32 compression 0; the rest is not looked at;
     *   8 bits:    256 colours of 4 bytes at offset 40, not looked at; rows from offset 1064,
     *              a byte a pixel, 0 black, 255 white;
     *   24 bits:   rows from offset 40, blue, green and red of each pixel; its grey is their mean.
     * Rows run from the bottom of the picture to its top, each padded to a multiple of 4 bytes. */
    void (*Grab)(void* Context, uint8_t* Frame, int32_t* Bytes, MorvaneBoolean* Success);

    /* 18: shows the properties dialog, modal, and returns when it has been closed. What it changes
     * must survive Release. May be NULL if there is none. */
    void (*ShowProperties)(void* Context);
} MorvaneGrabber;

#if defined(_WIN32)
#define MORVANE_GRABBER_EXPORT __declspec(dllexport)
#else
#define MORVANE_GRABBER_EXPORT __attribute__((visibility("default")))
#endif

/* The one function that a plug-in exports. NULL if there can be no grabber; the reason, in UTF-8
 * and ended by a 0, may then stand in Reason, which has room for ReasonBytes bytes with it. */
MORVANE_GRABBER_EXPORT const MorvaneGrabber* MorvaneCreateGrabber(
    char* Reason, int32_t ReasonBytes);

#ifdef __cplusplus
}
#endif

#endif
