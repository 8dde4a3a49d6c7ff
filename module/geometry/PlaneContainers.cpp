// The code of the containers of planes.
#include "geometry/PlaneContainers.h"

template class QcDynArrayBase<Plane>;
template class QcDynArray<Plane>;
template class QcList<Plane>;
template class QcDList<Plane>;
