#include "zorvex/analysis/EntryContents.h"

#include "zorvex/base/Internal.h"
#include "zorvex/storage/AGIResource.h"

namespace zorvex {

EntryContents ReadEntry(AGIResType type, std::uint8_t number, std::int32_t volume, std::int32_t location) {
    AGIResource resource;
    resource.ResType(Internal(), type);
    resource.Unload();
    resource.Init(Internal(), number, volume, location);
    resource.Load();
    const ByteView bytes = resource.View();
    return {ByteArray(bytes.begin(), bytes.end()), resource.SizeInVol()};
}

}  // namespace zorvex
