// Any bytes as a view: reading ends in a view or a numbered error, and a view that was read survives its own
// bytes.
#include <algorithm>

#include "fuzz/Check.h"
#include "zorvex/base/Error.h"
#include "zorvex/view/AGIView.h"
#include "zorvex/view/ViewCodec.h"

namespace {

using namespace zorvex;

bool IsExpected(const Error& error) {
    constexpr std::int32_t ids[] = {595, 548, 553, 539, 513};
    return error.Number() == reOutOfMemory ||
           std::ranges::any_of(ids, [&](std::int32_t id) { return error.Is(id); });
}

/// The bytes of a view, or none for one that is too large for its offsets or has a loop without cels, which
/// could not be read again.
ByteArray Encode(const ViewContent& view) {
    try {
        return EncodeView(view);
    } catch (const Error& error) {
        FUZZ_CHECK(error.Is(516) || error.Is(557) || error.Is(534));
        return {};
    }
}

void CheckObject(ByteView bytes, const ByteArray& encoded) {
    AGIView view;
    view.SetData(bytes);
    const auto loops = view.Loops();
    view.BuildViewData();
    FUZZ_CHECK(view.AllData() == encoded);
    for (std::int32_t i = loops->Count() - 1; i > 0; --i) {
        const auto before = loops->Item(0)->Cels();
        const auto pixels = before->Count() > 0 ? before->Item(0)->AllCelData() : CelPixels();
        loops->Remove(i);
        const auto after = loops->Item(0)->Cels();
        FUZZ_CHECK(after->Count() == 0 || after->Item(0)->AllCelData() == pixels);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView bytes(data, size);
    ViewContent view;
    try {
        view = DecodeView(bytes);
    } catch (const Error& error) {
        FUZZ_CHECK(IsExpected(error));
        return 0;
    }
    if (view.loops.empty()) return 0;
    const ByteArray encoded = Encode(view);
    if (encoded.empty()) return 0;
    FUZZ_CHECK(DecodeView(encoded) == view);
    FUZZ_CHECK(EncodeView(DecodeView(encoded)) == encoded);
    CheckObject(bytes, encoded);
    return 0;
}
