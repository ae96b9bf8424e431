#include "tests/support/LogicBytes.h"

#include "zorvex/game/Text.h"
#include "zorvex/storage/AGIResource.h"

namespace zorvex::test {

ByteArray LogicOf(ByteView code, const MessageTable& messages) {
    AGIResource resource;
    resource.NewResource();
    resource.SetData(ByteArray(2));
    if (!code.empty()) resource.InsertData(code);
    WriteMsgs(resource, messages);
    return resource.AllData();
}

std::string TextOfLines(const DecodedLogic& logic) {
    return ReplaceAll(Join(logic.Lines, "\n") + "\n", "\r\n", "\n");
}

}  // namespace zorvex::test
