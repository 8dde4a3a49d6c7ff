// Makes an entity from its name or id, and reads its data.
#include "platform/host/QcAdsEnt.h"

#include <algorithm>
#include <iterator>

#include "platform/host/AdsEntity.h"

QcAdsEnt::QcAdsEnt(const ads_name name) {
    if (name)
        std::copy_n(name, std::size(m_name), m_name);
}

QcAdsEnt::QcAdsEnt(AcDbObjectId id) {
    m_name[0] = id.asOldId();
}

resbuf* QcAdsEnt::GetDXFData() const {
    return acdbEntGet(m_name);
}
