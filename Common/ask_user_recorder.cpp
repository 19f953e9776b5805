#include "Common/ask_user_recorder.h"

#include <algorithm>
#include <utility>

namespace {

ScriptedUser* current = nullptr;

} // namespace

ScriptedUser::ScriptedUser(std::vector<int> answers) : m_answers(std::move(answers)) {
    current = this;
}
ScriptedUser::~ScriptedUser() {
    current = nullptr;
}

int ScriptedUser::Answer(AskedQuestion question) {
    questions.push_back(std::move(question));
    if (m_answers.empty())
        return ask_answer::NotShown;
    return m_answers[std::min(questions.size(), m_answers.size()) - 1];
}

int AskUser(void* owner, const char* text, const char* title, AskButtons buttons, AskIcon icon,
            AskPlace place) {
    return current ? current->Answer({owner, text, title, buttons, icon, place}) : ask_answer::NotShown;
}
