// The containers of planes that the module exports, so that all libraries share one copy of their code. Bases come
// first.
#pragma once

#include "containers/QcDList.h"
#include "containers/QcDynArray.h"
#include "containers/QcDynArrayBase.h"
#include "containers/QcList.h"
#include "geometry/Plane.h"

extern template class ORVO_API QcDynArrayBase<Plane>;
extern template class ORVO_API QcDynArray<Plane>;
extern template class ORVO_API QcList<Plane>;
extern template class ORVO_API QcDList<Plane>;
