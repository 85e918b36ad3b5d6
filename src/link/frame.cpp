#include "link/frame.h"

#include "base/text.h"

#include <algorithm>

namespace voltaro {
namespace {

void AppendUnits(WipedBytes& bytes, std::wstring_view units)
{
    for (const wchar_t unit : units) {
        bytes.push_back(static_cast<std::byte>(unit & 0xFF));
        bytes.push_back(static_cast<std::byte>((unit >> 8) & 0xFF));
    }
}

FieldText UnitsOf(std::span<const std::byte> bytes)
{
    WipedUnits units;
    units.reserve(bytes.size() / kBytesPerUnit + 1);
    for (std::size_t at = 0; at + 1 < bytes.size(); at += kBytesPerUnit) {
        const auto unit = static_cast<wchar_t>(
            std::to_integer<unsigned>(bytes[at]) | (std::to_integer<unsigned>(bytes[at + 1]) << 8));
        if (unit == L'\0')
            break;
        units.push_back(unit);
    }
    return FieldText(std::move(units));
}

} // namespace

WipedBytes EncodeFrame(std::wstring_view text, std::size_t limitBytes)
{
    const std::size_t limitUnits = (std::max(limitBytes, kFrameOverheadBytes) - kFrameOverheadBytes) / kBytesPerUnit;
    text = Truncated(text, limitUnits);
    const std::size_t length = text.size() * kBytesPerUnit + kFrameOverheadBytes;
    WipedBytes frame;
    frame.reserve(2 * length);
    AppendUnits(frame, Format(L"%08d", static_cast<int>(length)));
    AppendUnits(frame, text);
    AppendUnits(frame, std::wstring(1, L'\0'));
    return frame;
}

FrameAssembler::FrameAssembler(std::size_t capacityBytes)
    : m_capacity(capacityBytes)
{
}

std::size_t FrameAssembler::Wanted() const
{
    return (m_expected == 0 ? m_capacity / 2 : m_expected) - m_bytes.size();
}

FrameAssembler::State FrameAssembler::Take(std::span<const std::byte> piece)
{
    m_bytes.insert(m_bytes.end(), piece.begin(), piece.end());
    if (m_expected == 0) {
        if (m_bytes.size() < kLengthBytes)
            return State::NeedMore;
        const std::int32_t length = LeadingNumber(UnitsOf(std::span(m_bytes).first(kLengthBytes)));
        if (length <= 0 || static_cast<std::size_t>(length) > m_capacity)
            return State::Failed;
        m_expected = static_cast<std::size_t>(length);
    }
    if (m_bytes.size() == m_expected)
        return State::Complete;
    // More than the frame said: there is no count left to ask for.
    return m_bytes.size() < m_expected ? State::NeedMore : State::Failed;
}

FieldText FrameAssembler::Text() const
{
    return UnitsOf(std::span(m_bytes).subspan(std::min(kLengthBytes, m_bytes.size())));
}

} // namespace voltaro
