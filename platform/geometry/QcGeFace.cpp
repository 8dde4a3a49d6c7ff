// The destructor of QcGeFace: it stands here, so that the class has one home for its table of virtual functions.
#include "platform/geometry/QcGeFace.h"

QcGeFace::~QcGeFace() = default;
