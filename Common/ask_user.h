// A question to the user: a message box that blocks its owner until it is answered.
#pragma once

enum class AskButtons { Ok, OkCancel, YesNo };
enum class AskIcon { Warning, Error };
enum class AskPlace { AsOwner, Foreground }; // above the owner's windows or in front of all programs'

// The platform's own numbers.
namespace ask_answer {
enum AskAnswer : int { NotShown = 0, Ok = 1, Cancel = 2, Yes = 6, No = 7 };
} // namespace ask_answer

// `owner` is an HWND. The answer is an AskAnswer, or whatever else the platform gives.
int AskUser(void* owner, const char* text, const char* title, AskButtons buttons,
            AskIcon icon = AskIcon::Warning, AskPlace place = AskPlace::AsOwner);
