// The native build's user: answers as a test tells it to. Where there is none, no box can be shown.
#pragma once

#include "Common/ask_user.h"

#include <string>
#include <vector>

struct AskedQuestion {
    void* owner;
    std::string text;
    std::string title;
    AskButtons buttons;
    AskIcon icon;
    AskPlace place;
};

// Answers while it lives, the given answers in turn and the last of them to all further questions; one at a
// time.
class ScriptedUser {
  public:
    explicit ScriptedUser(std::vector<int> answers);
    ~ScriptedUser();
    ScriptedUser(const ScriptedUser&) = delete;
    ScriptedUser& operator=(const ScriptedUser&) = delete;

    int Answer(AskedQuestion question);

    std::vector<AskedQuestion> questions;

  private:
    std::vector<int> m_answers;
};
