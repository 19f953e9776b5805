// A locale in which numbers have a decimal comma.
#pragma once

#include <string>

// The process has it while this lives. A test whose process can't have it fails.
class DecimalCommaLocale {
  public:
    DecimalCommaLocale();
    ~DecimalCommaLocale();
    DecimalCommaLocale(const DecimalCommaLocale&) = delete;
    DecimalCommaLocale& operator=(const DecimalCommaLocale&) = delete;

  private:
    std::string m_before;
};
