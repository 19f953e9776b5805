#include "companions/common/edit_text.h"

SecretBuffer<wchar_t> EditText(HWND edit) {
    // The length may be more than the text has, never less.
    const int most = GetWindowTextLengthW(edit) + 1;
    SecretBuffer<wchar_t> text(static_cast<std::size_t>(most));
    const int length = GetWindowTextW(edit, text.Units().data(), most);
    text.Shorten(static_cast<std::size_t>(length));
    return text;
}
