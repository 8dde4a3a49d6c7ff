// Taking the places of one tree over into another.
#pragma once

class QcDtDictionary;

// Adds what the target lacks, with everything under it, and gives cities that it has the source's tag and position, as
// far as the source has one; their comments and other attributes stay. Items of one name and different kinds are left
// alone. Nothing is ever removed or renamed.
void MergeZones(QcDtDictionary& target, const QcDtDictionary& source);
