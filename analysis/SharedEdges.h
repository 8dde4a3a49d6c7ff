// The edges that faces share, by the numbers of their corners.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/Vector3.h"

// One side of a face, or a part of one. Which way it runs is not kept.
struct FaceEdge {
    std::uint32_t from = 0;  // the lesser number
    std::uint32_t to = 0;
    std::uint32_t face = 0;

    bool IsSameAs(const FaceEdge& other) const { return from == other.from && to == other.to; }
};

// Puts edges into an order in which those between the same corners follow each other.
void SortEdges(std::vector<FaceEdge>& edges);

// The end of the edges that are the same as the one at `first`, in sorted ones.
std::size_t EndOfSame(const std::vector<FaceEdge>& edges, std::size_t first);

// Divides the edges of which an odd number is the same at those of their corners that lie on them (closer than
// `tolerance`): a wall's long edge where two short ones meet it. In and out sorted. Where corners lie on so many edges
// that it would make millions of parts of few, nothing is divided.
void DivideOddEdges(std::vector<FaceEdge>& edges, const std::vector<Vector3>& places, double tolerance);
