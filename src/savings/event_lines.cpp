#include "savings/event_lines.h"

#include "base/text.h"
#include "link/replies.h"
#include "savings/decimal.h"

#include <algorithm>

namespace voltaro {
namespace {

constexpr std::size_t kCodeLength = 6;

// A code of six ASCII letters of either case as one number, 0 for any other text: thousands of lines are looked up.
constexpr std::uint64_t KeyOf(std::wstring_view code)
{
    std::uint64_t key = 0;
    for (const wchar_t unit : code) {
        const wchar_t lower = unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit + (L'a' - L'A')) : unit;
        if (lower < L'a' || lower > L'z')
            return 0;
        key = key << 8 | static_cast<std::uint64_t>(lower);
    }
    return code.size() == kCodeLength ? key : 0;
}

// clang-format off
constexpr struct EventCodeRow {
    constexpr EventCodeRow(std::wstring_view text, EventCode named) : key(KeyOf(text)), code(named) {}
    std::uint64_t key;
    EventCode code;
} kEventCodes[] = {
    {L"Istime", EventCode::IdleStart},            {L"Ietime", EventCode::IdleEnd},
    {L"Dstime", EventCode::DimStart},             {L"Detime", EventCode::DimEnd},
    {L"Mstime", EventCode::MonitorOffStart},      {L"Metime", EventCode::MonitorOffEnd},
    {L"Qstime", EventCode::StandbyStart},         {L"Qetime", EventCode::StandbyEnd},
    {L"Sbtime", EventCode::TimedStandbyStart},    {L"Setime", EventCode::TimedStandbyEnd},
    {L"Duratn", EventCode::Duration},
    {L"Hstime", EventCode::HibernateStart},       {L"Hetime", EventCode::HibernateEnd},
    {L"Qhtime", EventCode::SecondHibernateStart}, {L"QHetme", EventCode::SecondHibernateEnd},
    {L"Qptime", EventCode::PowerOffStart},        {L"QUptme", EventCode::PowerOffEnd},
                                                  {L"QAgtme", EventCode::PowerOffAgentEnd},
    {L"Sdtime", EventCode::ShutdownStart},        {L"SUptme", EventCode::ShutdownEnd},
};

// The stamp's numbers: what must stand before each (a blank: anything blank or nothing), its greatest width.
constexpr struct {
    wchar_t before;
    std::size_t width;
    int LocalTime::*field;
} kStampFields[] = {
    {L' ', 4, &LocalTime::year}, {L'/', 2, &LocalTime::month},  {L'/', 2, &LocalTime::day},
    {L' ', 2, &LocalTime::hour}, {L':', 2, &LocalTime::minute}, {L':', 2, &LocalTime::second},
};
// clang-format on

bool IsBlank(wchar_t unit)
{
    return unit == L' ' || (unit >= L'\t' && unit <= L'\r');
}

bool IsDigit(wchar_t unit)
{
    return unit >= L'0' && unit <= L'9';
}

// Reads a text from the front the way the agent's own formats are scanned, the same with every C library.
class Scanner {
public:
    explicit Scanner(std::wstring_view text)
        : m_rest(text)
    {
    }

    // Up to six characters that are no blanks, after any blanks.
    std::wstring_view Code()
    {
        SkipBlanks();
        std::size_t length = 0;
        while (length < std::min(m_rest.size(), kCodeLength) && !IsBlank(m_rest[length]))
            ++length;
        return Cut(length);
    }

    // The given character, at once; a blank stands for any blanks or none.
    bool Take(wchar_t literal)
    {
        if (literal == L' ') {
            SkipBlanks();
            return true;
        }
        if (!m_rest.starts_with(literal))
            return false;
        Cut(1);
        return true;
    }

    // A whole number after any blanks; its sign counts towards the width, which is at most 4.
    bool Number(std::size_t width, int& number)
    {
        SkipBlanks();
        width = std::min(width, m_rest.size());
        const bool negative = m_rest.starts_with(L'-');
        const std::size_t sign = negative || m_rest.starts_with(L'+') ? 1 : 0;
        std::size_t end = sign;
        int value = 0;
        for (; end < width && IsDigit(m_rest[end]); ++end)
            value = value * 10 + static_cast<int>(m_rest[end] - L'0');
        if (end == sign)
            return false;
        number = negative ? -value : value;
        Cut(end);
        return true;
    }

    [[nodiscard]] std::wstring_view Rest() const { return m_rest; }

private:
    void SkipBlanks()
    {
        while (!m_rest.empty() && IsBlank(m_rest.front()))
            m_rest.remove_prefix(1);
    }

    std::wstring_view Cut(std::size_t length)
    {
        const std::wstring_view front = m_rest.substr(0, length);
        m_rest.remove_prefix(length);
        return front;
    }

    std::wstring_view m_rest;
};

// The mark between code and numbers, blanks allowed on both sides.
bool TakeMark(Scanner& scanner)
{
    return scanner.Take(L' ') && scanner.Take(L'#') && scanner.Take(L' ');
}

} // namespace

std::vector<EventLine> ReadEventLines(const Element& root, std::wstring_view answer)
{
    const bool failed = ContainsIgnoreCase(answer, L"failure");
    std::vector<const Element*> elements = ChildrenOfEvery(root, failed ? L"response" : L"details");
    elements.resize(std::min(elements.size(), kMaxEventLines));
    std::vector<EventLine> lines;
    for (const Element* element : elements) {
        if (element->children.empty())
            lines.emplace_back(element->text);
        else
            lines.emplace_back(WholeText(*element));
    }
    return lines;
}

EventCode EventCodeOf(std::wstring_view code)
{
    const std::uint64_t key = KeyOf(code);
    const auto row = std::find_if(
        std::begin(kEventCodes), std::end(kEventCodes), [key](const auto& candidate) { return candidate.key == key; });
    return row == std::end(kEventCodes) ? EventCode::None : row->code;
}

TimeLine ScanTimeLine(std::wstring_view line)
{
    Scanner scanner(line);
    TimeLine result{scanner.Code(), {}};
    if (!TakeMark(scanner))
        return result;
    for (const auto& part : kStampFields) {
        if (!scanner.Take(part.before) || !scanner.Number(part.width, result.stamp.*part.field))
            break;
    }
    return result;
}

DurationLine ScanDurationLine(std::wstring_view line)
{
    Scanner scanner(line);
    DurationLine result{scanner.Code()};
    if (TakeMark(scanner))
        scanner.Number(4, result.minutes);
    return result;
}

PowerLine ScanPowerLine(std::wstring_view line)
{
    Scanner scanner(line);
    PowerLine result{scanner.Code()};
    if (TakeMark(scanner))
        result.kilowattHours = LeadingDecimal(scanner.Rest()).value_or(0.0F);
    return result;
}

DayEvent ReadEvent(std::wstring_view line)
{
    const TimeLine timeLine = ScanTimeLine(line);
    DayEvent event{EventCodeOf(timeLine.code)};
    if (event.code == EventCode::Duration)
        event.minutes = ScanDurationLine(line).minutes;
    else if (event.code != EventCode::None)
        event.at = SecondsOf(timeLine.stamp);
    return event;
}

} // namespace voltaro
