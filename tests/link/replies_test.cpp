#include "link/replies.h"

#include "link/frame.h"
#include "link/requests.h"
#include "link/system_details.h"

#include <gtest/gtest.h>

// NOLINTBEGIN(bugprone-reserved-identifier): the address sanitizer's own names; its header is not installed everywhere
extern "C" int __sanitizer_install_malloc_and_free_hooks(
    void (*onMalloc)(const volatile void*, std::size_t), void (*onFree)(const volatile void*));
extern "C" std::size_t __sanitizer_get_allocated_size(const volatile void* memory);
// NOLINTEND(bugprone-reserved-identifier)

namespace voltaro {

// A frame with any length digits, as bytes of UTF-16LE.
static WipedBytes Frame(const std::wstring& digits, const std::wstring& text)
{
    WipedBytes bytes;
    for (const wchar_t unit : digits + text + std::wstring(1, L'\0')) {
        bytes.push_back(static_cast<std::byte>(unit & 0xFF));
        bytes.push_back(static_cast<std::byte>(unit >> 8));
    }
    return bytes;
}

TEST(FrameTest, EncodesLengthTextAndNul)
{
    EXPECT_EQ(EncodeFrame(L"", 1024), Frame(L"00000018", L""));
    EXPECT_EQ(EncodeFrame(L"\x20AC", 1024), Frame(L"00000020", L"\x20AC"));
    EXPECT_EQ(EncodeFrame(std::wstring(600, L'x'), 1024), Frame(L"00001024", std::wstring(503, L'x')));
    const wchar_t pair[] = {0xD83D, 0xDE00, L'\0'};
    EXPECT_EQ(EncodeFrame(std::wstring(502, L'x') + pair, 1024), Frame(L"00001022", std::wstring(502, L'x')));
}

static Element Texts(const wchar_t* name, std::initializer_list<const wchar_t*> texts)
{
    Element element{name, {}, {}};
    for (const wchar_t* text : texts)
        element.children.push_back(TextElement(L"f", text));
    return element;
}

TEST(RepliesTest, TheFirstInDocumentOrderIsReadAlone)
{
    const Element first{L"response", {}, {{L"deep", {}, {Texts(L"details", {L"a"})}}, Texts(L"details", {L"b"})}};
    const Element root{L"vltp", {}, {first, Texts(L"response", {L"c", L"d", L"e"})}};
    EXPECT_EQ(TextsOf(DetailsFields(root), 9), std::vector<std::wstring>{L"a"});
    EXPECT_TRUE(ResponseFields(root).size() == 2U && TextAt(DetailsFields(root), 7).empty());
}

TEST(RepliesTest, PoliciesKeepEveryRuleAndItsTextsByNumber)
{
    Element details = Texts(L"details", {L"Meetings"});
    for (std::size_t i = 60; i > 0; --i)
        details.children.push_back(
            {L"AppNo_" + std::to_wstring(i), {}, {TextElement(L"Application_Name", std::wstring(i * 9, L'a'))}});
    const auto policy = ReadPolicy(details);
    ASSERT_TRUE(policy->name == L"Meetings" && policy->rules.size() == 60);
    for (const std::size_t i : {0U, 59U})
        EXPECT_EQ(policy->rules[i].applicationName, std::wstring(i * 9 + 9, L'a'));
    EXPECT_FALSE(ReadPolicy(Texts(L"details", {})));
}

TEST(SystemDetailsTest, GroupsEndInASeparatorRow)
{
    const Element adapter = Texts(L"Adapter", {L"1", L"2", L"3"}), second = Texts(L"Adapter", {L"4", L"5", L"6"});
    SystemDetails details;
    const Element root{L"details", {},
        {Texts(L"CPUInfo", {L"a", L"b", L"c", L"d", L"On"}), Element{L"NetworkInfo", {}, {adapter, second}},
            Element{L"PhysicalDiskInfo", {}, {}}}};
    details.Read(&root);
    EXPECT_EQ(details.RowCount(DetailSection::Network), 8U);
    const auto separator = details.Row(DetailSection::Network, 3);
    EXPECT_TRUE(separator.name == L" " && separator.value == L" ");
    EXPECT_TRUE(details.Row(DetailSection::Network, 6).value == L"6" && details.StateText() == L"On");
    details.Read(nullptr);
    EXPECT_EQ(details.RowCount(DetailSection::Network), 8U) << "the counts stand over empty rows";
    EXPECT_TRUE(details.Row(DetailSection::Network, 0).value.empty() && details.StateText().empty());
}

TEST(SystemDetailsTest, DropsWhatHasNoSlot)
{
    const Element root{L"details", {},
        {Element{
             L"CPUInfo", {}, std::vector<Element>(50, TextElement(std::wstring(80, L'n'), std::wstring(200, L'v')))},
            Element{L"LogicalDiskInfo", {}, std::vector<Element>(400, Texts(L"LogicalDisk", {L"1", L"2"}))}}};
    SystemDetails details;
    details.Read(&root);
    EXPECT_EQ(details.RowCount(DetailSection::Processor), 20U);
    EXPECT_EQ(details.Row(DetailSection::Processor, 19).value.view().size(), 119U);
    EXPECT_EQ(details.RowCount(DetailSection::LogicalDisks), 500U);
}

// Counts the blocks that are given back with the secret still in them, in units of this platform or of the wire.
constexpr std::wstring_view kSecret = L"tr0ub4dor";
constexpr std::u16string_view kSecretOnTheWire = u"tr0ub4dor";
static bool watching = false;
static int blocksLeft = 0;

template <class Units>
static std::string_view BytesOf(const Units& units)
{
    return {reinterpret_cast<const char*>(units.data()), units.size() * sizeof units[0]};
}

static void OnFree(const volatile void* memory)
{
    const auto* bytes = static_cast<const char*>(const_cast<const void*>(memory));
    const std::string_view block(bytes, watching ? __sanitizer_get_allocated_size(memory) : 0);
    if (block.find(BytesOf(kSecret)) != block.npos || block.find(BytesOf(kSecretOnTheWire)) != block.npos)
        ++blocksLeft;
}

TEST(WipingTest, NoBlockIsGivenBackWithASecretInIt)
{
    ASSERT_TRUE(__sanitizer_install_malloc_and_free_hooks([](const volatile void*, std::size_t) {}, OnFree));
    watching = true;
    {
        ProxySettings record;
        record.password = kSecret;
        record.password = FieldText(std::wstring_view(L"longer than it was before"));
        record.password = kSecret;
        const ProxySettings copy = record;
        const Element request = RequestElement(WithRecord(Operation::ApplyProxySettings, copy), L"{ID}");
        const Element answer{L"vltp", L"", {request.children.back()}};
        EXPECT_EQ(ReadRecord<ProxySettings>(answer)->password, kSecret);
        WipedBytes frame = EncodeFrame(ChildText(answer.children[0], 5), 1'000);
        FrameAssembler assembler(1'000);
        for (const std::byte byte : frame)
            static_cast<void>(assembler.Take(std::span(&byte, 1)));
        EXPECT_EQ(assembler.Text(), kSecret);
        const Request key = WithText(Operation::ActivateLicense, L"ActivationKey", kSecret);
        frame.resize(5'000);
    }
    watching = false;
    EXPECT_EQ(blocksLeft, 0);
}

} // namespace voltaro
