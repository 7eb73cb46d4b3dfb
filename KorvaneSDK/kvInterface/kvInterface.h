// The whole host API in one include.

#pragma once

#include "kvApplication.h"
#include "kvCommand.h"
#include "kvCommandMessage.h"
#include "kvDocument.h"
#include "kvEntities.h"
#include "kvEnumerations.h"
#include "kvEvents.h"
#include "kvSketchManager.h"
#include "kvUserInterface.h"
