// What a user answers to a question that is asked for one file after another.
#pragma once

enum class Answer { Yes, YesToAll, No, NoToAll };

/** Asks for each file until the user gives an "all" answer, which then holds for the rest. */
class RememberedAnswer
{
public:
    RememberedAnswer() = default;

    /** Gives this answer to every question; the user is not asked. */
    static RememberedAnswer toAll(bool yes) { return {yes, true}; }

    /** The last answer that was given, and whether it was one to all. */
    RememberedAnswer(bool yes, bool toAll)
        : m_yes(yes)
        , m_toAll(toAll)
    {
    }

    /** True for yes. The question is a function without arguments that returns an Answer. */
    template <typename Question>
    bool isYes(const Question &question)
    {
        if (m_toAll)
            return m_yes;
        const Answer answer = question();
        m_yes = answer == Answer::Yes || answer == Answer::YesToAll;
        m_toAll = answer == Answer::YesToAll || answer == Answer::NoToAll;
        return m_yes;
    }

    bool isToAll() const { return m_toAll; }

private:
    bool m_yes = true;
    bool m_toAll = false;
};
