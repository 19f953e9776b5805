#include "Common/log_recorder.h"

namespace log_backend {
namespace {

Recorder* current = nullptr;

} // namespace

Recorder::Recorder() {
    current = this;
}
Recorder::~Recorder() {
    current = nullptr;
}

bool IsOpenable(Target) {
    return current != nullptr;
}

void HoldMain() {}
void ReleaseMain() {}

void Append(Target target, std::string_view message) {
    if (current)
        (target == Target::Main ? current->main : current->record).emplace_back(message);
}

void Replace(Target, std::string_view message) {
    if (current)
        current->favorite = message;
}

} // namespace log_backend
