// Which entities are asked about.
#pragma once

#include <cstdint>
#include <functional>

// By their number (OccluderSet::handles); null for all of them.
using EntityFilter = std::function<bool(std::uint32_t entity)>;
