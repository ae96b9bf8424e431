// Any bytes as the calls of a host: whatever it does, only errors come of it, and what it has saved is what
// the next one finds.
#include "fuzz/host/Host.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zorvex::fuzz::Host(zorvex::ByteView(data, size)).Run();
    return 0;
}
