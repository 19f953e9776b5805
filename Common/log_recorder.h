// The native build's logs: kept in memory for tests, off until a test asks for them.
#pragma once

#include "Common/log.h"

#include <string>
#include <vector>

namespace log_backend {

// Records while it lives; one at a time.
class Recorder {
  public:
    Recorder();
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    std::vector<std::string> main;
    std::vector<std::string> record;
    std::string favorite;
};

} // namespace log_backend
