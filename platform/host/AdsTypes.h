// The plain types and the codes of the host's interface for entity data.
#pragma once

#include <cstdint>

// A number, in the drawing's units where it is a length.
using ads_real = double;
// x, y, z.
using ads_point = ads_real[3];

// The name of an object in the open drawing, good until the drawing is closed: the value of the object's id, then a
// word that counts for nothing. See AdsEntity.h for names that stand in the data of entities.
using ads_name = std::uint64_t[2];

// ---- Results of functions. ----
inline constexpr int RTNORM = 5100;    // done
inline constexpr int RTERROR = -5001;  // not done
inline constexpr int RTREJ = -5003;    // the drawing cannot hold what was given

// ---- What a value is. ----
inline constexpr int RTNONE = 5000;     // no value
inline constexpr int RTREAL = 5001;     // a number
inline constexpr int RTPOINT = 5002;    // three coordinates, of which the first two count
inline constexpr int RTSHORT = 5003;    // a whole number of 16 bits
inline constexpr int RTANG = 5004;      // an angle
inline constexpr int RTSTR = 5005;      // a text
inline constexpr int RTENAME = 5006;    // the name of an object
inline constexpr int RTPICKS = 5007;    // the name of a selection set
inline constexpr int RTORINT = 5008;    // an orientation
inline constexpr int RT3DPOINT = 5009;  // three coordinates
inline constexpr int RTLONG = 5010;     // a whole number of 32 bits
