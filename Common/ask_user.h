// A question to the user: a message box with an exclamation mark that blocks its owner until it is answered.
#pragma once

enum class AskButtons { Ok, OkCancel };

// The platform's own numbers.
namespace ask_answer {
enum AskAnswer : int { NotShown = 0, Ok = 1, Cancel = 2 };
} // namespace ask_answer

// `owner` is an HWND. The answer is an AskAnswer, or whatever else the platform gives.
int AskUser(void* owner, const char* text, const char* title, AskButtons buttons);
