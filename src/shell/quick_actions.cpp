#include "shell/quick_actions.h"

#include "base/platform_calls.h"
#include "base/system_procedure.h"
#include "base/text.h"
#include "console/agent.h"
#include "shell/main_commands.h"
#include "shell/main_window.h"
#include "ui/boxes.h"

namespace voltaro {
namespace {

constexpr const wchar_t* kActivitiesHeading = L"Following activity/activities is/are in progress on this System:\n\n";

constexpr Box kClosedConnection = {L"Closed Connection",
    L"Connection Closed !\nPlease check if Voltaro service is Running.\n\nHint :To check for services (in Windows) go "
    L"to "
    L"Start->Run.. type 'services.msc' press Enter.",
    BoxIcon::Information};

// A word of the agent that has a box of its own.
struct SpecialResult {
    const wchar_t* word = nullptr;
    Box box{};
};

constexpr Box Question(const wchar_t* caption, const wchar_t* text)
{
    return {caption, text, BoxIcon::Question, BoxButtons::YesNo};
}

constexpr Box Outcome(const wchar_t* caption, const wchar_t* text)
{
    return {caption, text, BoxIcon::Information};
}

// One quick action. `force` asks whether to go on over running activities; without a caption a "Failure" is a failure.
struct QuickAction {
    int command;
    Operation operation;
    bool monitorOff; // the request carries the `monitoroff` element
    Box question;
    SpecialResult special[2];
    Box force;
    Box failed;
};

constexpr QuickAction kActions[] = {
    {kStandby, Operation::Standby, false,
        Question(L"Standby now", L"Are you sure you want to put this system to Standby.\nPress 'Yes' to continue.."),
        {{L"Standby Not Support", {L"Standby disabled", L"Standby is disabled or not supported on this system."}}, {}},
        Question(L"Force Standby", L"\nDo you want to put this system to Standby anyway ?"),
        Outcome(L"Failed", L"Could not Standby.")},
    {kHibernate, Operation::Hibernate, false,
        Question(L"Hibernate now", L"Are you sure you want to Hibernate this system.\nPress 'Yes' to continue.."),
        {{L"Hibernation Not Support",
             {L"Hibernation disabled", L"Hibernation is disabled or not supported on this system."}},
            {L"No Disk Space", {L"Failed", L"Failed to Hibernate.\nInsufficient disk space to Hibernate"}}},
        Question(L"Force Hibernate", L"\nDo you want to Hibernate this system anyway ?"),
        Outcome(L"Failed", L"Could not Hibernate.")},
    {kShutdown, Operation::Shutdown, false,
        Question(L"Shutdown now", L"Are you sure you want to Shutdown this system.\nPress 'Yes' to continue.."),
        {{L"Shutdown Not Support", {L"Shutdown disabled", L"Shutdown is disabled or not supported on this system."}},
            {}},
        Question(L"Force Shutdown", L"\nDo you want to Shutdown this system anyway ?"),
        Outcome(L"Failed", L"Could not Shutdown.")},
    {kRestart, Operation::Restart, false,
        Question(L"Restart now", L"Are you sure you want to Restart this system.\nPress 'Yes' to continue.."),
        {{L"Restart Not Support", {L"Restart disabled", L"Restart is disabled or not supported on this system."}}, {}},
        Question(L"Force Restart", L"\nDo you want to Restart this system anyway ?"),
        Outcome(L"Failed", L"Could not Restart.")},
    {kLogOff, Operation::LogOff, true,
        Question(L"Log off now", L"Are you sure you want to Log off from this system.\nPress 'Yes' to continue.."),
        {{L"No Active User",
             {L"Nobody Active", L"Could not Log off as there is nobody active in the system.", BoxIcon::Information}},
            {L"Logoff Not Support", {L"Log off disabled", L"Log off is disabled or not supported on this system."}}},
        Question(L"Force Log off", L"\nDo you want to Log off from this system anyway ?"),
        Outcome(L"Failed", L"Could not Log off.")},
    {kLockScreen, Operation::LockScreen, true,
        Question(L"Lock Screen now",
            L"Are you sure you want this system's screen to be locked now?\nPress 'Yes' to continue.."),
        {{L"Already Locked", {L"Lock Screen", L"Screen Already Locked", BoxIcon::Information}}, {}}, {},
        Outcome(L"LockScreen Failed", L"Could not Lock Screen")},
};

static_assert(CoversQuickActions(kActions, [](const QuickAction& action) { return action.command; }));

void LockWithSystem()
{
    if (const auto lock = SystemProcedure<decltype(::LockWorkStation)>(L"user32.dll", "LockWorkStation"))
        lock();
}

Request RequestOf(const QuickAction& action)
{
    return action.monitorOff ? WithText(action.operation, L"monitoroff", L"No") : Plain(action.operation);
}

// The status word of an answer, and after it the activities that are in progress.
struct ActionResult {
    std::wstring word;
    std::wstring activities;
};

ActionResult ResultOf(Reply& reply)
{
    constexpr std::size_t kMaxActivities = 100;
    if (!reply.Root())
        return {};
    const std::vector<std::wstring> texts = TextsOf(DetailsOrResponseFields(*reply.Root()), kMaxActivities);
    ActionResult result;
    for (std::size_t i = 0; i < texts.size(); ++i)
        (i == 0 ? result.word : result.activities) += i == 0 ? texts[i] : texts[i] + L"\n";
    return result;
}

void AskToForce(HWND main, const QuickAction& action, const std::wstring& activities)
{
    const bool go = AskQuestion(main, action.force, kActivitiesHeading + activities + action.force.text);
    if (Send(Plain(go ? Operation::GoOnWithAction : Operation::DropAction)).Lost())
        ShowMessage(main, kClosedConnection);
}

void TellResult(HWND main, const QuickAction& action, const ActionResult& result)
{
    for (const SpecialResult& special : action.special) {
        if (special.word && IsWord(result.word, special.word))
            return ShowMessage(main, special.box);
    }
    if (IsWord(result.word, kSuccess)) {
        if (action.operation == Operation::LockScreen)
            (platformCalls.lockScreen ? platformCalls.lockScreen : LockWithSystem)();
    } else if (IsWord(result.word, kFailure) && action.force.caption) {
        AskToForce(main, action, result.activities);
    } else {
        ShowMessage(main, action.failed);
    }
}

void Run(HWND main, const QuickAction& action)
{
    if (!AskQuestion(main, action.question))
        return;
    ActionResult result;
    {
        Reply reply = Send(RequestOf(action));
        if (reply.Lost())
            return ShowMessage(main, kClosedConnection);
        result = ResultOf(reply);
    }
    TellResult(main, action, result);
}

} // namespace

void RunQuickAction(HWND main, int command)
{
    for (const QuickAction& action : kActions) {
        if (action.command == command)
            Run(main, action);
    }
    ShowNormalControls(main);
}

} // namespace voltaro
