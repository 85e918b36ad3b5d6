#include "link/frame.h"
#include "link/replies.h"
#include "link/requests.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {

// Counts the blocks that are given back with the secret still in them, in units of this platform or of the wire.
constexpr std::wstring_view kSecret = L"tr0ub4dor";
constexpr std::u16string_view kSecretOnTheWire = u"tr0ub4dor";
bool watching = false;
int blocksLeft = 0;

template <class Units>
std::string_view BytesOf(const Units& units)
{
    return {reinterpret_cast<const char*>(units.data()), units.size() * sizeof units[0]};
}

void Inspect(const void* memory, std::size_t bytes)
{
    const std::string_view block(static_cast<const char*>(memory), bytes);
    if (watching && (block.find(BytesOf(kSecret)) != block.npos || block.find(BytesOf(kSecretOnTheWire)) != block.npos))
        ++blocksLeft;
}

} // namespace

void* operator new(std::size_t bytes)
{
    if (void* memory = std::malloc(bytes))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t bytes) noexcept
{
    Inspect(memory, bytes);
    std::free(memory);
}

namespace voltaro {
namespace {

TEST(WipingTest, NoBlockIsGivenBackWithASecretInIt)
{
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

} // namespace
} // namespace voltaro
