// Anchors kvBaseObject_c's virtual table in kvLibrary.

#include "kvBaseObject.h"

kvBaseObject_c::~kvBaseObject_c() = default;
