#include "console/main_hold.h"
#include "console/ui_calls.h"
#include "shell/about.h"
#include "shell/main_menus.h"
#include "support/program.h"
#include "ui/menus.h"
#include "ui/theme.h"

namespace voltaro {
namespace {

constexpr int kStateLine = 8601, kFields = 8602, kKey = 8603, kActivateButton = 8604;

class ActivationTest : public testing::Test {
protected:
    void Open()
    {
        program.Command(WindowId::Main, kActivate);
        ASSERT_TRUE(IsWindowVisible(window));
        EXPECT_FALSE(IsWindowEnabled(WindowOf(WindowId::Main)));
        program.TakeOperations();
    }
    void Activate(const wchar_t* key)
    {
        program.Type(WindowId::Activation, kKey, key);
        program.Command(WindowId::Activation, kActivateButton);
    }
    std::wstring StateLine() const { return TextOf(window, kStateLine); }

    LoadedProgram program{*simulator::FindScenario(L"notactivated")};
    HWND window = WindowOf(WindowId::Activation);
};

TEST_F(ActivationTest, SendsAKeyHoweverItWasPastedAndNothingElse)
{
    Open();
    EXPECT_EQ(StateLine(), L"Voltaro on 'Localhost' is not activated.");
    EXPECT_EQ(CellOf(ControlOf(window, kFields), 0, 1), L"Not Activated");
    for (const wchar_t* key : {L"", L" - - ", L"abcd_EFGH", L"abcd\u00E9", L"<key>", L"a&b"}) {
        BoxScript boxes{{L"Invalid activation key", {}}};
        Activate(key);
        EXPECT_EQ(TextOf(window, kKey), L"");
        EXPECT_TRUE(program.TakeOperations().empty());
    }
    for (const wchar_t* key : {L"abcd-EFGH-1234-5678", L"abcdEFGH12345678", L"  abcd EFGH 1234 5678 ",
             L"abcd\u2013EFGH\u20131234\u20135678"}) {
        BoxScript boxes{{L"Voltaro activated", L"Voltaro is activated now."}};
        Activate(key);
        EXPECT_EQ(
            program.TakeOperations(), (Operations{L"ActivateLicense", L"GetActivationstatus", L"GetLicenseInfo"}));
        EXPECT_EQ(StateLine(), L"Voltaro on 'Localhost' is activated.");
        EXPECT_EQ(CellOf(ControlOf(window, kFields), 3, 1), L"abcdEFGH12345678");
        EXPECT_EQ(TextOf(window, kKey), L"");
    }
    program.Command(WindowId::Activation, IDCANCEL);
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_TRUE(IsWindowEnabled(WindowOf(WindowId::Main)));
    EXPECT_TRUE(IsConsoleReady());
}

TEST_F(ActivationTest, TellsWhatTheAgentAnswers)
{
    Open();
    constexpr const wchar_t* kRows[][3]
        = {{L"0000-0000-0000-0000", L"Could not activate Voltaro.", L"Voltaro on 'Localhost' is not activated."},
            {L"9999-9999-9999-9999", L"The license of this activation key has expired.",
                L"The license of Voltaro on 'Localhost' has expired."}};
    for (const auto& [key, text, line] : kRows) {
        BoxScript boxes{{L"Activation Failed", text}};
        Activate(key);
        EXPECT_EQ(TextOf(window, kKey), key); // to be mended
        EXPECT_EQ(StateLine(), line);
    }
    for (const auto& [reply, text] : {std::pair(L"Not Activated", L"Voltaro is still not activated."),
             std::pair(L"SUCCESS", L"Voltaro is activated now."), std::pair(L"", L"Could not activate Voltaro.")}) {
        program.AnswerWith(L"ActivateLicense", reply);
        BoxScript boxes{{*text == L'V' && text[11] == L'a' ? L"Voltaro activated" : L"Activation Failed", text}};
        Activate(L"abcdEFGH12345678");
    }
    program.Agent().Stop();
    BoxScript boxes{{L"Connection Issue", {}}};
    Activate(L"abcdEFGH12345678");
    EXPECT_EQ(TextOf(window, kKey), L"abcdEFGH12345678");
}

TEST(AboutTest, OpensWithAndWithoutAnAgent)
{
    constexpr int kCaption = 8701, kHost = 8702, kService = 8704, kLicense = 8705, kLicensedTo = 8706;
    LoadedProgram program;
    program.Command(WindowId::Main, kTrayAbout);
    ASSERT_NE(AboutWindow(), nullptr);
    EXPECT_EQ(GetFocus(), ControlOf(AboutWindow(), IDOK));
    EXPECT_FALSE(IsItemEnabled(TrayMenu(), kTrayAbout));
    EXPECT_FALSE(IsWindowEnabled(WindowOf(WindowId::Main)));
    EXPECT_EQ(TextOf(AboutWindow(), kCaption), L"Voltaro - Standard Edition  [ Version : 1.06.006.000 ]");
    EXPECT_EQ(TextOf(AboutWindow(), kHost), L"FIELDBOOK-07");
    EXPECT_EQ(TextOf(AboutWindow(), kLicense), L"Activated");
    EXPECT_EQ(TextOf(AboutWindow(), kLicensedTo), L"Jan Berg & Partners");
    program.Command(WindowId::Main, kAbout); // the one that is open
    SendMessageW(AboutWindow(), WM_CLOSE, 0, 0);
    SendMessageW(AboutWindow(), WM_COMMAND, IDOK, 0);
    EXPECT_EQ(AboutWindow(), nullptr);
    EXPECT_EQ(GetObjectType(WindowFont()), static_cast<DWORD>(OBJ_FONT)); // was only lent to the link
    EXPECT_TRUE(IsItemEnabled(TrayMenu(), kTrayAbout));
    EXPECT_TRUE(IsWindowEnabled(WindowOf(WindowId::Main)));
    EXPECT_TRUE(IsConsoleReady());

    for (const bool systemInfoClosesFirst : {true, false}) {
        program.Command(WindowId::Main, kSystemInfo);
        program.Command(WindowId::Main, kTrayAbout);
        EXPECT_FALSE(IsConsoleReady());
        SendMessageW(WindowOf(WindowId::Main), kTrayMessage, 9013, WM_LBUTTONUP);
        Pump();
        EXPECT_EQ(GetForegroundWindow(), AboutWindow()) << "the newest holder";
        const HWND first = systemInfoClosesFirst ? WindowOf(WindowId::SystemInfo) : AboutWindow();
        const HWND second = systemInfoClosesFirst ? AboutWindow() : WindowOf(WindowId::SystemInfo);
        SendMessageW(first, WM_COMMAND, IDCANCEL, 0);
        EXPECT_EQ(FrontWindow(), second);
        EXPECT_FALSE(IsWindowEnabled(WindowOf(WindowId::Main)));
        SendMessageW(second, WM_COMMAND, IDCANCEL, 0);
        EXPECT_TRUE(IsWindowEnabled(WindowOf(WindowId::Main)) && IsConsoleReady());
    }

    program.Agent().Stop();
    BoxScript boxes{{L"Connection Issue", L"not responding"}};
    program.Command(WindowId::Main, kAbout);
    ASSERT_NE(AboutWindow(), nullptr);
    EXPECT_EQ(TextOf(AboutWindow(), kService), L"not responding");
    EXPECT_EQ(TextOf(AboutWindow(), kLicensedTo), L"");
}

} // namespace
} // namespace voltaro
