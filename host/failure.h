// What a call of this module fails with; caught at its exports.
#pragma once

#include <stdexcept>

class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error; // one sentence, UTF-8
};
