// A record of one of the drawing's tables: a layer, a line type, a text style and so on.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/host/AcDbObject.h"

// Opened and closed as any other object.
class ORVO_API AcDbSymbolTableRecord : public AcDbObject {
public:
    // The object as a record; null when it is another kind of object, or null.
    static AcDbSymbolTableRecord* cast(AcRxObject* object);

    // The record's name, good until the record is closed. eKeyNotFound, with null in `name`, when it has none.
    Acad::ErrorStatus getName(const wchar_t*& name) const;

private:
    friend Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode);

    explicit AcDbSymbolTableRecord(AcDbObjectId id) : AcDbObject(id) {}
    ~AcDbSymbolTableRecord() override;

    mutable CString m_name;  // holds what getName gave last
};
