// The destructor of AcRxObject: it stands here, so that the class has one home for its table of virtual functions.
#include "platform/host/AcRxObject.h"

AcRxObject::~AcRxObject() = default;
