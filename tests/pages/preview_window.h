// A dialog with the preview on it, and the values that it shows.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>

// Entries in use of the process's table of graphics objects, those of the platform's own among them.
int GraphicsObjects();

class PreviewWindow : public testing::Test {
  protected:
    // Starts with every value 0.
    PreviewWindow();
    ~PreviewWindow() override;

    HWND Open(int templateId);
    // The standard page on a window of its own, as a sheet has it.
    HWND OpenProductPage();
    HWND Control() const;

    static void SetCurrent(int keyword, std::uint32_t value);
    // How often the dialog was asked to draw the control.
    static int Drawings();

    HWND dialog = nullptr;

  private:
    HWND m_sheet = nullptr;
};
