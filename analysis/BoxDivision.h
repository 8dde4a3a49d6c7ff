// Divides boxes into two parts that are cheap to look through.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/BoxTree.h"

// Some of many boxes, by their indices, and the box around them.
struct BoxPart {
    std::uint32_t* first = nullptr;
    std::uint32_t* last = nullptr;
    Box box;

    std::size_t Count() const { return static_cast<std::size_t>(last - first); }
};

// At least one box.
BoxPart PartOf(const std::vector<Box>& boxes, std::uint32_t* first, std::uint32_t* last);
double HalfSurface(const Box& box);

// Reorders the indices of a part with two or more boxes, and gives where the second of two parts begins, of which
// neither is empty: the ones for which the number of boxes times the surface of what is around them is least, in
// sixteen bins along the axis on which the middles are farthest apart (the surface area heuristic). The same for the
// same boxes everywhere.
std::uint32_t* DivideBoxes(const std::vector<Box>& boxes, const BoxPart& part);
