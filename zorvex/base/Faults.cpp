#include "zorvex/base/Faults.h"

namespace zorvex {

namespace {

constinit ErrorRecorder recorderInUse = nullptr;

}  // namespace

void UseErrorRecorder(ErrorRecorder recorder) {
    recorderInUse = recorder;
}

void RememberError(const Error& error) {
    if (recorderInUse != nullptr) recorderInUse(error);
}

void RaiseWrapped(std::int32_t id, const Error& error) {
    RaiseText(ObjectErrorBase + id, error.Source(), CatalogueText(id, {error.NumberAndText()}));
}

}  // namespace zorvex
