// An object of the open drawing that somebody has opened.
#pragma once

#include <cstdint>

#include "platform/base/Api.h"
#include "platform/host/AcDbObjectId.h"
#include "platform/host/AcRxObject.h"
#include "platform/host/ErrorStatus.h"

namespace AcDb {

// What an object is opened for.
enum OpenMode {
    kForRead = 0,    // the only one that is served here
    kForWrite = 1,   // refused
    kForNotify = 2,  // refused
};

}  // namespace AcDb

// Exists from acdbOpenAcDbObject to close(), which ends it: every object that was opened has to be closed, once. It may
// outlive its drawing, but then knows nothing any more.
class ORVO_API AcDbObject : public AcRxObject {
public:
    // The id under which it was opened.
    AcDbObjectId objectId() const { return m_id; }
    // The object's handle; 0 when it has none.
    std::uint64_t handle() const;

    // Closes and frees the object; nothing may use it afterwards. Gives eOk.
    Acad::ErrorStatus close();

    // How many objects are open at the moment.
    static int OpenCount();

protected:
    // Counts as open from here on.
    explicit AcDbObject(AcDbObjectId id);
    ~AcDbObject() override;

private:
    friend Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode);

    AcDbObjectId m_id;
};

// Opens an object of the drawing that is open, for reading; `object` is then an AcDbSymbolTableRecord for a record of
// one of the drawing's tables. Failures leave null in `object`: eInvalidInput for a null id and for a mode other than
// kForRead (data is changed through acdbEntMod), eKeyNotFound when the open drawing, if there is one, has no such
// object.
ORVO_API Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode);
