#pragma once

#include "ui/boxes.h"

#include <initializer_list>
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

// While it lives, boxes are answered from the script in order instead of being shown. A box that is not expected next
// fails the test and is answered with Ok or No; boxes that never came fail it at the end.
class BoxScript {
public:
    BoxScript(std::initializer_list<ExpectedBox> boxes = {});
    ~BoxScript();
    BoxScript(const BoxScript&) = delete;
    BoxScript& operator=(const BoxScript&) = delete;

    // Adds boxes for the next step of a test.
    void Expect(std::initializer_list<ExpectedBox> boxes);
    // Fails the test if an expected box has not come so far.
    void ExpectAllSeen();

private:
    friend Answer AnswerFromScript(const BoxCall& call);

    std::mutex m_mutex; // workers show boxes too
    std::vector<ExpectedBox> m_boxes;
    std::size_t m_next = 0;
    BoxScript* m_outer;
    decltype(PlatformCalls::showMessageBox) m_before;
};

// Between scripts every box fails the test.
Answer FailOnBox(const BoxCall& call);

} // namespace voltaro
