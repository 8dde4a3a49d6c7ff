// The part of an AVI file before its samples: what the file holds, how it looks, and where the rest lies.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "platform/media/AviStreamInfo.h"

// A finished RIFF part, as the super index names it.
struct AviPartIndex {
    std::uint64_t offset = 0;    // of its "ix00" chunk's header, from the start of the file
    std::uint32_t size = 0;      // of that chunk with its header
    std::uint32_t duration = 0;  // positions
};

// What the part before the samples tells.
struct AviHeader {
    // Room for this many parts of 1 GiB; fixed, because the samples begin behind it.
    static constexpr std::size_t kMaxParts = 256;

    AVISTREAMINFOW info{};              // of the stream
    std::vector<std::uint8_t> format;   // of the samples
    std::uint32_t firstPartLength = 0;  // positions in the first part
    std::uint32_t length = 0;           // positions in all parts
    std::uint32_t largestSample = 0;    // bytes
    bool hasIndex = false;              // of the first part
    std::uint64_t firstPartEnd = 0;     // of the file's first RIFF chunk
    std::uint64_t firstMoviEnd = 0;     // of the samples in it
    std::vector<AviPartIndex> parts;    // empty as long as there is one part only

    // "00db" for samples as they are, "00dc" for coded ones.
    std::array<char, 4> SampleTag() const;
    // Everything up to the first sample's chunk. Its size depends on the format alone.
    std::vector<std::uint8_t> Render() const;
};
