// The host's command line, as far as an add-in asks the user there.

#pragma once

#include "kvBaseObject.h"
#include "kvEnumerations.h"
#include "kvString.h"

/// The command line of the host.
class KVINTERFACE_EXPORT kvCommandMessage_c : public kvBaseObject_c {
public:
    /// Asks the user for those of position, scale and rotation (radians) whose flag is true, offers the given
    /// values for them, and returns all seven values. Positions are in drawing units. `result` is
    /// kvPromptResult_Completed when the user answers every question. Otherwise the seven values are
    /// untouched.
    virtual kvResult PromptForBlockInsertion2(const kvString &blockName, bool positionOnScreen, double x,
                                              double y, double z, bool scaleOnScreen, double scaleX,
                                              double scaleY, double scaleZ, bool rotationOnScreen,
                                              double rotation, double *outX, double *outY, double *outZ,
                                              double *outScaleX, double *outScaleY, double *outScaleZ,
                                              double *outRotation, kvPromptResultType_e *result) = 0;
};
