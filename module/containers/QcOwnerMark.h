// How a container of pointers, seen through its base, tells that it owns the objects.
#pragma once

#include "platform/base/Api.h"

// Marks the containers that own the objects which their pointers point to.
class ORVO_API QcOwnerMark {};
