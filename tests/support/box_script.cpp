#include "support/box_script.h"

#include "base/ansi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace voltaro {
namespace {

BoxScript* script = nullptr;

Answer Refusal(const BoxCall& call)
{
    return call.buttons == BoxButtons::Ok ? Answer::Ok : Answer::No;
}

std::string Shown(const std::wstring& caption, const std::wstring& text)
{
    return "\"" + Narrowed(caption) + "\": \"" + Narrowed(text) + "\"";
}

} // namespace

Answer FailOnBox(const BoxCall& call)
{
    ADD_FAILURE() << "unexpected box " << Shown(call.caption, call.text);
    return Refusal(call);
}

Answer AnswerFromScript(const BoxCall& call)
{
    const std::lock_guard lock(script->m_mutex);
    if (script->m_next == script->m_boxes.size())
        return FailOnBox(call);
    const ExpectedBox& expected = script->m_boxes[script->m_next];
    if (call.caption != expected.caption || call.text.find(expected.text) == std::wstring::npos) {
        ADD_FAILURE() << "box " << Shown(call.caption, call.text) << " in the place of "
                      << Shown(expected.caption, expected.text);
        return Refusal(call);
    }
    ++script->m_next;
    return expected.answer;
}

BoxScript::BoxScript(std::initializer_list<ExpectedBox> boxes)
    : m_outer(std::exchange(script, this))
    , m_before(std::exchange(platformCalls.showMessageBox, &AnswerFromScript))
{
    Expect(boxes);
}

BoxScript::~BoxScript()
{
    ExpectAllSeen();
    script = m_outer;
    platformCalls.showMessageBox = m_before;
}

void BoxScript::Expect(std::initializer_list<ExpectedBox> boxes)
{
    const std::lock_guard lock(m_mutex);
    std::ranges::copy_if(boxes, std::back_inserter(m_boxes), [](const auto& box) { return !box.caption.empty(); });
}

void BoxScript::ExpectAllSeen()
{
    const std::lock_guard lock(m_mutex);
    for (; m_next < m_boxes.size(); ++m_next)
        ADD_FAILURE() << "no box " << Shown(m_boxes[m_next].caption, m_boxes[m_next].text);
}

} // namespace voltaro
