#include "link/exchange.h"
#include "support/program.h"

namespace voltaro {

constexpr auto kWindow = WindowId::Activation;
constexpr int kStateLine = 8601, kFields = 8602, kKey = 8603, kActivateButton = 8604;

struct ActivationTest : testing::Test, LoadedProgram {
    ActivationTest()
        : LoadedProgram(L"notactivated")
    {
        MainCommand(kActivate);
        TakeOperations();
    }
    void Activate(const wchar_t* key, const ExpectedBox& box)
    {
        boxes.Expect({box});
        Do({{kWindow, kKey, key}, {kWindow, kActivateButton}});
    }
};

TEST_F(ActivationTest, SendsAKeyHoweverItWasPastedAndNothingElse)
{
    EXPECT_EQ(CellOf(Find(kWindow, kFields), 0, 1), L"Not Activated");
    for (const wchar_t* key : {L"", L" - - ", L"abcd_EFGH", L"abcd\u00E9", L"<key>", L"a&b"}) {
        Activate(key, {L"Invalid activation key", {}});
        EXPECT_EQ(Text(kWindow, kKey), L"");
        EXPECT_TRUE(TakeOperations().empty());
    }
    for (const wchar_t* key : {L"abcd-EFGH-1234-5678", L"abcdEFGH12345678", L"  abcd EFGH 1234 5678 ",
             L"abcd\u2013EFGH\u20131234\u20135678"}) {
        Activate(key, {L"Voltaro activated", L"Voltaro is activated now."});
        EXPECT_EQ(TakeOperations(), (Operations{L"ActivateLicense", L"GetActivationstatus", L"GetLicenseInfo"}));
        EXPECT_EQ(Text(kWindow, kStateLine), L"Voltaro on 'Localhost' is activated.");
        EXPECT_EQ(CellOf(Find(kWindow, kFields), 3, 1), L"abcdEFGH12345678");
        EXPECT_EQ(Text(kWindow, kKey), L"");
        static_cast<void>(ExchangePrepared(Operation::ActivateLicense));
        EXPECT_EQ(Agent().Requests().back().text, L"") << "the key does not stay in its buffer";
        TakeOperations();
    }
    Command(kWindow, IDCANCEL);
    EXPECT_TRUE(!IsOpen(kWindow) && IsMainFree());
}

TEST_F(ActivationTest, TellsWhatTheAgentAnswers)
{
    constexpr const wchar_t* kRows[][3]
        = {{L"0000-0000-0000-0000", L"Could not activate Voltaro.", L"Voltaro on 'Localhost' is not activated."},
            {L"9999-9999-9999-9999", L"The license of this activation key has expired.",
                L"The license of Voltaro on 'Localhost' has expired."}};
    for (const auto& [key, text, line] : kRows) {
        Activate(key, {L"Activation Failed", text});
        EXPECT_EQ(Text(kWindow, kKey), key); // to be mended
        EXPECT_EQ(Text(kWindow, kStateLine), line);
    }
    for (const auto& [reply, box] :
        {std::pair(L"Not Activated", ExpectedBox{L"Activation Failed", L"Voltaro is still not activated."}),
            {L"SUCCESS", {L"Voltaro activated", L"Voltaro is activated now."}},
            {L"", {L"Activation Failed", L"Could not activate Voltaro."}}, {kNoAnswer, {L"Connection Issue", {}}}}) {
        AnswerWith(L"ActivateLicense", reply);
        Activate(L"abcdEFGH12345678", box);
    }
}

struct AboutTest : testing::Test, LoadedProgram { };

TEST_F(AboutTest, OpensWithAndWithoutAnAgent)
{
    constexpr int kCaption = 8701, kHost = 8702, kService = 8704, kLicense = 8705, kLicensedTo = 8706;
    const auto text = [](int id) { return TextOf(AboutWindow(), id); };
    MainCommand(kTrayAbout);
    EXPECT_FALSE(IsItemEnabled(TrayMenu(), kTrayAbout) || IsMainFree());
    EXPECT_EQ(text(kCaption), L"Voltaro - Standard Edition  [ Version : 1.06.006.000 ]");
    EXPECT_EQ(text(kHost) + text(kLicense) + text(kLicensedTo), L"FIELDBOOK-07ActivatedJan Berg & Partners");
    MainCommand(kAbout); // the one that is open
    SendMessageW(AboutWindow(), WM_CLOSE, 0, 0);
    SendMessageW(AboutWindow(), WM_COMMAND, IDOK, 0);
    EXPECT_EQ(AboutWindow(), nullptr);
    EXPECT_TRUE(IsItemEnabled(TrayMenu(), kTrayAbout) && IsMainFree());

    for (const bool systemInfoClosesFirst : {true, false}) {
        MainCommand(kSystemInfo);
        MainCommand(kTrayAbout);
        SendMessageW(main, kTrayMessage, 9013, WM_LBUTTONUP);
        Pump();
        EXPECT_EQ(GetForegroundWindow(), AboutWindow()) << "the newest holder";
        HWND closing[] = {WindowOf(WindowId::SystemInfo), AboutWindow()};
        if (!systemInfoClosesFirst)
            std::swap(closing[0], closing[1]);
        for (const HWND window : closing) {
            EXPECT_FALSE(IsEnabled(main));
            SendMessageW(window, WM_COMMAND, IDCANCEL, 0);
        }
        EXPECT_TRUE(IsMainFree());
    }

    Agent().Stop();
    boxes.Expect({{L"Connection Issue", L"not responding"}});
    MainCommand(kAbout);
    EXPECT_EQ(text(kService) + L"|" + text(kLicensedTo), L"not responding|");
}

} // namespace voltaro
