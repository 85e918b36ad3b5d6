#include "measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

#include <msxml2.h>
#include <wrl/client.h>

namespace voltaro::bench {
namespace {

using Microsoft::WRL::ComPtr;

bool withinLimits = true;

void Conclude(bool within)
{
    std::puts(within ? "" : "  ABOVE");
    std::fflush(stdout);
    withinLimits = withinLimits && within;
}

} // namespace

double Time(const Work& work)
{
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double Median(std::vector<double> figures)
{
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

std::vector<double> Medians(const std::vector<Work>& works, int rounds)
{
    std::vector<std::vector<double>> times(works.size());
    for (int round = -1; round < rounds; ++round) {
        for (std::size_t i = 0; i < works.size(); ++i) {
            const double time = Time(works[i]);
            if (round >= 0)
                times[i].push_back(time);
        }
    }
    std::vector<double> medians;
    std::ranges::transform(times, std::back_inserter(medians), Median);
    return medians;
}

void JudgeRatio(const char* what, double time, double base, double limit)
{
    std::printf("%-58s %9.3f ms  / %9.3f ms = %5.2f  (limit %.2f)", what, time, base, time / base, limit);
    Conclude(time <= limit * base);
}

void JudgeFigure(const char* what, double figure, const char* unit, double limit)
{
    std::printf("%-58s %9.3f %s (limit %.3f)", what, figure, unit, limit);
    Conclude(figure <= limit);
}

void JudgeGrowth(const char* what, const std::vector<std::size_t>& sizes, const std::function<Work(std::size_t)>& work)
{
    constexpr double kLimit = 1.1;
    std::vector<Work> works;
    std::ranges::transform(sizes, std::back_inserter(works), work);
    const std::vector<double> times = Medians(works, 31);
    std::printf("%-58s", what);
    double worst = 0, least = times[0] / static_cast<double>(sizes[0]);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        std::printf(" %zu: %.3f ms", sizes[i], times[i]);
        const double share = times[i] / static_cast<double>(sizes[i]);
        worst = std::max(worst, share / least);
        least = std::min(least, share);
    }
    std::printf("; worst %.2f (limit %.2f)", worst, kLimit);
    Conclude(worst <= kLimit);
}

bool IsWithinLimits()
{
    return withinLimits;
}

void ReadBare(const std::wstring& text, const wchar_t* path)
{
    constexpr CLSID kDocument30 = {0xF5078F32, 0xC551, 0x11D3, {0x89, 0xB9, 0x00, 0x00, 0xF8, 0x1F, 0xE2, 0x21}};
    constexpr IID kDocument = {0x2933BF81, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
    static IClassFactory* classObject = nullptr; // as the console keeps it
    if (!classObject)
        CoGetClassObject(kDocument30, CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&classObject));
    ComPtr<IXMLDOMDocument> document;
    if (FAILED(classObject->CreateInstance(nullptr, kDocument, reinterpret_cast<void**>(document.GetAddressOf()))))
        return;
    document->put_async(VARIANT_FALSE);
    document->put_validateOnParse(VARIANT_FALSE);
    document->put_resolveExternals(VARIANT_FALSE);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    const BSTR copy = SysAllocStringLen(text.data(), static_cast<UINT>(text.size())), query = SysAllocString(path);
    document->loadXML(copy, &loaded);
    ComPtr<IXMLDOMNodeList> nodes;
    LONG count = 0;
    if (SUCCEEDED(document->selectNodes(query, &nodes)))
        nodes->get_length(&count);
    SysFreeString(query);
    SysFreeString(copy);
    for (LONG i = 0; i < count; ++i) {
        ComPtr<IXMLDOMNode> node;
        BSTR nodeText = nullptr;
        if (SUCCEEDED(nodes->get_item(i, &node)))
            node->get_text(&nodeText);
        SysFreeString(nodeText);
    }
}

} // namespace voltaro::bench
