// The objects of a drawing file that a new entity becomes.
#pragma once

#include <cstdint>

class DxfObjectMaker;
struct NewEntity;

// The record must be sound; `owner` is the handle of model space's BLOCK_RECORD, 0 for none.
void MakeEntity(const NewEntity& entity, std::uint64_t owner, DxfObjectMaker& maker);
