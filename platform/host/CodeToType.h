// What a group of a drawing holds, by its code.
#pragma once

#include "platform/base/Api.h"
#include "platform/host/AdsTypes.h"

// The result type of the value that belongs to a group code, by the published table of group code ranges:
//
//   -5, -2, -1                      RTENAME    names that the host adds; no file holds them
//   -4                              RTSTR      operators of filters
//   0-4, 6-9, 100, 102              RTSTR      texts
//   5, 105, 320-329, 1005           RTSTR      handles as such: hexadecimal texts
//   10-18, 110-119, 210-219,        RT3DPOINT  points: x, y and z in one value
//   1010-1019
//   38-49, 59, 140-149, 460-469,    RTREAL     numbers
//   1040-1059
//   50-58                           RTANG      angles, in the file's own degrees
//   60-79, 170-179, 270-289,        RTSHORT    whole numbers of 16 bits
//   370-389, 400-409, 1060-1070
//   290-299                         RTSHORT    switches: 0 or 1
//   90-99, 420-429, 440-459, 1071   RTLONG     whole numbers of 32 bits
//   300-309, 410-419, 430-439,      RTSTR      texts
//   470-479, 999, 1000-1003,
//   1006-1009
//   330-369, 390-399, 480-481       RTENAME    handles of other objects, given as their names
//
// RTNONE for everything else. Some codes are known and have no type all the same: the y and z of points (20-37,
// 120-139, 220-239, 1020-1039), which belong to their x; 64-bit whole numbers (160-169) and bytes (310-319, 1004),
// for which there is no result type; and -3, which only announces other groups.
ORVO_API int CodeToType(int code);
