// Reading and setting one group of an entity's data.
#include "records/EntityData.h"

#include "platform/base/Abandon.h"
#include "platform/host/AcDbSymbolTableRecord.h"
#include "platform/host/AdsEntity.h"
#include "platform/host/CodeToType.h"
#include "records/EntityValue.h"

namespace {

// The first buffer with the code; null when there is none, and `last` is then the chain's end.
resbuf* FindGroup(resbuf* chain, int code, resbuf*& last) {
    for (resbuf* buffer = chain; buffer; buffer = buffer->rbnext) {
        if (buffer->restype == code)
            return buffer;
        last = buffer;
    }
    return nullptr;
}

resbuf* AppendGroup(resbuf* last, int code) {
    resbuf* const buffer = acutNewRb(code);
    if (buffer) {
        buffer->rbnext = nullptr;
        last->rbnext = buffer;
    }
    return buffer;
}

bool SetGroup(resbuf* chain, int code, int type, const void* value) {
    resbuf* last = chain;
    resbuf* group = FindGroup(chain, code, last);
    if (!group)
        group = AppendGroup(last, code);
    return group && StoreValue(*group, type, value);
}

}  // namespace

int SetEntData(const QcAdsEnt& ent, int code, const void* value) {
    const int type = CodeToType(code);
    if (type == RTNONE || !value)
        return RTERROR;
    resbuf* const chain = ent.GetDXFData();
    if (!chain)
        return RTERROR;
    const bool isSet = SetGroup(chain, code, type, value);
    if (isSet)
        acdbEntMod(chain);  // callers are told of a change that was tried, not of one that was made
    acutRelRb(chain);
    return isSet ? RTNORM : RTERROR;
}

int GetEntData(const QcAdsEnt& ent, int code, void* out) {
    const int type = CodeToType(code);
    if (type == RTNONE || !out)
        return RTERROR;
    resbuf* const chain = ent.GetDXFData();
    if (!chain)
        return RTERROR;
    resbuf* last = chain;
    const resbuf* const group = FindGroup(chain, code, last);
    if (!group) {
        Abandon(chain);
        return RTERROR;
    }
    const bool isFetched = FetchValue(*group, type, out);
    acutRelRb(chain);
    return isFetched ? RTNORM : RTERROR;
}

CString GetSymbolName(AcDbObjectId id) {
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, id, AcDb::kForRead) != Acad::eOk)
        return CString();
    CString name;
    const wchar_t* text = nullptr;
    const AcDbSymbolTableRecord* const record = AcDbSymbolTableRecord::cast(object);
    if (record && record->getName(text) == Acad::eOk)
        name = text;
    object->close();
    return name;
}
