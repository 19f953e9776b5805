// What the bytes of a dialog template tell.
#pragma once

#include "resource_module.h"

#include <string>
#include <vector>

// A control, or the dialog itself with no class, as a template tells it.
struct TemplateItem {
    std::string fixed; // help number, styles, place and, of a control, its number
    int number = 0;
    short width = 0;
    DWORD style = 0;
    std::wstring className; // or the number of a system class
    std::wstring title;
};

struct DialogTemplate {
    TemplateItem dialog;
    std::wstring font;
    WORD fontSize = 0;
    std::vector<TemplateItem> items;
};

DialogTemplate TemplateOf(const ResourceModule& module, int number);

std::wstring WithoutAccelerator(std::wstring text);
