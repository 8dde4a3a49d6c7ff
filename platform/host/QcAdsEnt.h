// An entity of the open drawing, by its name.
#pragma once

#include "platform/base/Api.h"
#include "platform/host/AcDbObjectId.h"
#include "platform/host/AdsTypes.h"
#include "platform/host/ResBuf.h"

// A value class; it holds the name and nothing of the entity.
class ORVO_API QcAdsEnt {
public:
    // No entity.
    QcAdsEnt() = default;
    // Of this name or id, whether there is such an entity or not.
    explicit QcAdsEnt(const ads_name name);
    explicit QcAdsEnt(AcDbObjectId id);

    // Null for no entity.
    AcDbObjectId GetObjectId() const { return AcDbObjectId::FromOldId(m_name[0]); }

    // The entity's whole data as acdbEntGet gives it: a new chain, which the caller frees with acutRelRb. Null when
    // there is no such entity in the drawing that is open.
    resbuf* GetDXFData() const;

private:
    ads_name m_name{};
};
