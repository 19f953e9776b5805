#include "host/driverhost_work.h"

#include "host/driverhost_controls.h"
#include "host/driverhost_windows.h"
#include "host/wide.h"

#include <string_view>

namespace driverhost {

using script::Action;
using script::Quoted;
using script::Verb;

namespace {

std::string Shown(bool on, std::string_view yes, std::string_view no) {
    return std::string(on ? yes : no);
}

std::string ExpectRows(HWND control, const std::string& name, const Action& action) {
    if (!HasRows(control))
        return name + ": the control is no combo box";
    if (action.verb == Verb::ExpectRow)
        return Mismatch("the row of " + name, std::to_string(SelectedRow(control)),
                        std::to_string(*action.row));
    if (action.verb == Verb::ExpectRows)
        return Mismatch("the number of rows of " + name, std::to_string(RowCount(control)),
                        std::to_string(action.number));
    return Mismatch("row " + std::to_string(*action.row) + " of " + name,
                    Quoted(Utf8(RowText(control, *action.row))), Quoted(action.wanted));
}

std::string WhyNotFocused(HWND control, const std::string& name) {
    const HWND focus = FocusOf(control);
    const std::string found =
        focus ? "control " + std::to_string(GetDlgCtrlID(focus)) + " has it" : "no control has it";
    return name + " does not have the focus, " + found;
}

} // namespace

std::wstring MessageOf(HWND box) {
    return ShownText(GetDlgItem(box, kMessageText));
}

std::string Mismatch(const std::string& what, const std::string& found, const std::string& wanted) {
    return found == wanted ? "" : what + " is " + found + ", expected " + wanted;
}

std::string WorkOn(HWND front, const Action& action) {
    const HWND control = FindControl(front, action.control);
    const std::string name = "control " + std::to_string(action.control);
    if (!control)
        return "there is no " + name;
    const auto about = [&](std::string error) { return error.empty() ? error : name + ": " + error; };
    switch (action.verb) {
    case Verb::Choose:
        return about(action.row ? ChooseRow(control, *action.row) : ChooseText(control, Wide(action.text)));
    case Verb::Press:
    case Verb::Click: return about(Click(control));
    case Verb::Check: return about(Check(control, action.number != 0));
    case Verb::Type: return about(TypeText(control, Wide(action.text)));
    case Verb::ExpectRow:
    case Verb::ExpectRows:
    case Verb::ExpectItem: return ExpectRows(control, name, action);
    case Verb::ExpectFocus: return HasFocus(control) ? "" : WhyNotFocused(control, name);
    case Verb::ExpectText:
        return Mismatch("the text of " + name, Quoted(Utf8(ShownText(control))), Quoted(action.text));
    case Verb::ExpectEnabled:
    case Verb::ExpectDisabled:
        return Mismatch(name, Shown(IsWindowEnabled(control), "enabled", "disabled"),
                        Shown(action.verb == Verb::ExpectEnabled, "enabled", "disabled"));
    case Verb::ExpectVisible:
    case Verb::ExpectHidden:
        return Mismatch(name, Shown(IsWindowVisible(control), "visible", "hidden"),
                        Shown(action.verb == Verb::ExpectVisible, "visible", "hidden"));
    case Verb::ExpectChecked:
        return Mismatch(name, Shown(IsChecked(control), "on", "off"), Shown(action.number != 0, "on", "off"));
    default: return "no action on a control";
    }
}

std::string ExpectMessage(HWND front, const std::string& wanted) {
    if (!IsMessageBox(front))
        return "no message box is up, expected " + Quoted(wanted);
    return Mismatch("the message", Quoted(Utf8(MessageOf(front))), Quoted(wanted));
}

std::string Answer(HWND front, int button) {
    if (!IsMessageBox(front))
        return "no message box is up";
    const HWND control = GetDlgItem(front, button);
    return control ? Click(control) : "the message box has no such button";
}

} // namespace driverhost
