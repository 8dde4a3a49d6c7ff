// The instantiations of the containers of planes, which the module exports.
#include "geometry/PlaneContainers.h"

template class QcDynArrayBase<Plane>;
template class QcDynArray<Plane>;
template class QcList<Plane>;
template class QcDList<Plane>;
