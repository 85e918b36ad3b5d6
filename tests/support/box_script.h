#pragma once

#include "base/ansi.h"
#include "ui/boxes.h"

#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <vector>

namespace voltaro {

// A box that a test expects, and what the user answers.
struct ExpectedBox {
    std::wstring caption; // whole; empty: no box comes (for tables)
    std::wstring text;    // a part of the text is enough; empty: any
    Answer answer = Answer::Ok;
};

// Between scripts every box fails the test.
inline Answer FailOnBox(const BoxCall& call)
{
    ADD_FAILURE() << "unexpected box " << Narrowed(call.caption) << ": " << Narrowed(call.text);
    return call.buttons == BoxButtons::Ok ? Answer::Ok : Answer::No;
}

// Answers boxes from the script in order while it lives; another box, or one that never came, fails the test.
class BoxScript {
public:
    BoxScript(std::initializer_list<ExpectedBox> boxes = {}) { Expect(boxes); }
    ~BoxScript()
    {
        ExpectAllSeen();
        script = m_outer;
        platformCalls.showMessageBox = m_before;
    }

    void Expect(std::initializer_list<ExpectedBox> boxes)
    {
        const std::lock_guard lock(m_mutex);
        std::ranges::copy_if(boxes, std::back_inserter(m_boxes), [](const auto& box) { return !box.caption.empty(); });
    }
    // Fails the test if an expected box has not come so far.
    void ExpectAllSeen()
    {
        const std::lock_guard lock(m_mutex);
        for (; m_next < m_boxes.size(); ++m_next)
            ADD_FAILURE() << "no box " << Narrowed(m_boxes[m_next].caption) << ": " << Narrowed(m_boxes[m_next].text);
    }

private:
    Answer AnswerNext(const BoxCall& call)
    {
        const std::lock_guard lock(m_mutex);
        const ExpectedBox* next = m_next < m_boxes.size() ? &m_boxes[m_next] : nullptr;
        if (!next || call.caption != next->caption || call.text.find(next->text) == std::wstring::npos)
            return FailOnBox(call);
        ++m_next;
        const bool isMatched = (call.buttons == BoxButtons::Ok) == (next->answer == Answer::Ok);
        EXPECT_TRUE(isMatched || next->answer == Answer::TimedOut) << Narrowed(call.caption);
        return next->answer;
    }

    static inline BoxScript* script = nullptr;

    std::mutex m_mutex; // workers show boxes too
    std::vector<ExpectedBox> m_boxes;
    std::size_t m_next = 0;
    BoxScript* m_outer = std::exchange(script, this);
    decltype(PlatformCalls::showMessageBox) m_before
        = std::exchange(platformCalls.showMessageBox, [](const BoxCall& call) { return script->AnswerNext(call); });
};

} // namespace voltaro
