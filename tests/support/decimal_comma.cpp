#include "tests/support/decimal_comma.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

DecimalCommaLocale::DecimalCommaLocale() : m_before(std::setlocale(LC_ALL, nullptr)) {
#ifdef _WIN32
    constexpr char kName[] = "German";
#else
    constexpr char kName[] = "de_DE.UTF-8";
    setenv("LOCPATH", ZR_LOCALES_DIR, 1);
#endif
    EXPECT_NE(std::setlocale(LC_ALL, kName), nullptr);
#ifndef _WIN32
    unsetenv("LOCPATH");
#endif
    EXPECT_EQ(std::strtod("12,5", nullptr), 12.5);
}

DecimalCommaLocale::~DecimalCommaLocale() {
    std::setlocale(LC_ALL, m_before.c_str());
}
