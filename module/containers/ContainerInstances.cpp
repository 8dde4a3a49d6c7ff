// The instantiations of the containers that the module exports for plain numbers. Bases come first.
#include "containers/Qc2dArray.h"
#include "containers/QcArray.h"
#include "containers/QcDList.h"
#include "containers/QcDynArray.h"
#include "containers/QcDynArrayBase.h"
#include "containers/QcList.h"

template class QcArray<int>;
template class QcArray<char>;
template class QcArray<double>;
template class QcArray<QcArray<int>>;
template class QcArray<QcArray<double>>;
template class Qc2dArray<int>;
template class Qc2dArray<double>;

template class QcDynArrayBase<int>;
template class QcDynArrayBase<char>;
template class QcDynArrayBase<double>;
template class QcDynArray<int>;
template class QcDynArray<char>;
template class QcDynArray<double>;
template class QcList<int>;
template class QcList<char>;
template class QcList<double>;
template class QcDList<int>;
template class QcDList<char>;
template class QcDList<double>;
