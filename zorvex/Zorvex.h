// The public class model of the library. A host includes this header and nothing else.
#pragma once

#include "zorvex/compiler/AGICommandFunctions.h"
#include "zorvex/compiler/AGICommands.h"
#include "zorvex/compiler/AGILogicSourceSettings.h"
#include "zorvex/compiler/AGITestCommands.h"
#include "zorvex/game/AGIGameEvents.h"
#include "zorvex/game/Error.h"
#include "zorvex/game/Event.h"
#include "zorvex/game/Types.h"
#include "zorvex/picture/AGIPicture.h"
#include "zorvex/picture/AGIPictures.h"
#include "zorvex/picture/PictureTypes.h"
#include "zorvex/platform/Bitmaps.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/storage/AGIResource.h"
