#include "link/frame.h"
#include "link/replies.h"
#include "link/requests.h"

#include <gtest/gtest.h>

// NOLINTBEGIN(bugprone-reserved-identifier): the address sanitizer's own names; its header is not installed everywhere
extern "C" int __sanitizer_install_malloc_and_free_hooks(
    void (*onMalloc)(const volatile void*, std::size_t), void (*onFree)(const volatile void*));
extern "C" std::size_t __sanitizer_get_allocated_size(const volatile void* memory);
// NOLINTEND(bugprone-reserved-identifier)

namespace voltaro {

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
