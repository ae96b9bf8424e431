// Logic resources for tests, put together from their parts.
#pragma once

#include <map>
#include <string>

#include "zorvex/base/Text.h"
#include "zorvex/decompiler/LogDecode.h"
#include "zorvex/language/MessageSection.h"
#include "zorvex/storage/AGIResource.h"

namespace zorvex::test {

/// A logic of some code and messages, as the compiler would write it.
inline ByteArray LogicOf(ByteView code, const std::map<std::size_t, std::string>& messages = {}) {
    MessageTable table;
    for (const auto& [number, text] : messages) {
        table.MsgUsed[number] = true;
        table.MsgText[number] = text;
    }
    AGIResource resource;
    resource.NewResource();
    resource.SetData(ByteArray(2));
    if (!code.empty()) resource.InsertData(code);
    WriteMsgs(resource, table);
    return resource.AllData();
}

/// The lines of a decompiled logic, each ended by a line feed.
inline std::string TextOfLines(const DecodedLogic& logic) {
    return ReplaceAll(Join(logic.Lines, "\n") + "\n", "\r\n", "\n");
}

}  // namespace zorvex::test
