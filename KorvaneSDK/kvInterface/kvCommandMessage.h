// The host's command line, as far as an add-in asks questions there.

#pragma once

#include "kvBaseObject.h"
#include "kvEnumerations.h"
#include "kvString.h"

class KVINTERFACE_EXPORT kvCommandMessage_c : public kvBaseObject_c {
public:
    /// Asks the user for those of position, scale and rotation (radians) whose flag is true, offering the
    /// given values, and returns all seven. `result` is kvPromptResult_Completed when the user went through
    /// with it; otherwise the seven values are left as they were.
    virtual kvResult PromptForBlockInsertion2(const kvString &blockName, bool positionOnScreen, double x,
                                              double y, double z, bool scaleOnScreen, double scaleX,
                                              double scaleY, double scaleZ, bool rotationOnScreen,
                                              double rotation, double *outX, double *outY, double *outZ,
                                              double *outScaleX, double *outScaleY, double *outScaleZ,
                                              double *outRotation, kvPromptResultType_e *result) = 0;
};
