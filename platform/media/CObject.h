// The root of the framework's classes: five virtual operations, of which only the destructor does anything here.
#pragma once

#include "platform/base/Api.h"

// Names a class. The object stands for the class itself; two objects are of one class when theirs is the same.
struct CRuntimeClass {
    const char* m_lpszClassName;  // as it stands in the source; lives as long as the library
    int m_nObjectSize;            // bytes
    // Whether this class is the other one or derives from it.
    ORVO_API bool IsDerivedFrom(const CRuntimeClass* other) const;
    // The class it derives from; null for none.
    const CRuntimeClass* m_pBaseClass;
};

class CArchive;
class CDumpContext;

// Copying is switched off: whatever derives from this is an object with an identity, not a value.
class ORVO_API CObject {
public:
    // The class itself.
    static const CRuntimeClass classCObject;

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    // ---- The virtual operations, in the order of their slots. ----
    // The object's own class. Never null.
    virtual const CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    // Does nothing: nothing is stored here; classes that can be stored say what. Streams of objects and dumps belong to
    // the host.
    virtual void Serialize(CArchive& archive);
    virtual void AssertValid() const;
    virtual void Dump(CDumpContext& context) const;

    // Whether the object is of this class or of one that derives from it.
    bool IsKindOf(const CRuntimeClass* runtimeClass) const;

protected:
    CObject() = default;
};
