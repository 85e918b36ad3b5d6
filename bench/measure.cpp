#include "measure.h"

#include "base/windows_api.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

#include <msxml2.h>
#include <wrl/client.h>

namespace voltaro::bench {

std::vector<double> Medians(const std::vector<Work>& works, int rounds)
{
    using Clock = std::chrono::steady_clock;
    std::vector<std::vector<double>> times(works.size());
    for (int round = -1; round < rounds; ++round) {
        for (std::size_t i = 0; i < works.size(); ++i) {
            const auto start = Clock::now();
            works[i]();
            const std::chrono::duration<double, std::milli> time = Clock::now() - start;
            if (round >= 0)
                times[i].push_back(time.count());
        }
    }
    std::vector<double> medians;
    for (std::vector<double>& row : times) {
        std::nth_element(row.begin(), row.begin() + static_cast<std::ptrdiff_t>(row.size() / 2), row.end());
        medians.push_back(row[row.size() / 2]);
    }
    return medians;
}

void PrintRatio(const char* what, double time, double base, double limit)
{
    const double ratio = time / base;
    std::printf("%-58s %9.3f ms  / %9.3f ms = %5.2f  (limit %.2f)%s\n", what, time, base, ratio, limit,
        ratio <= limit ? "" : "  ABOVE");
    std::fflush(stdout);
}

namespace {

using Microsoft::WRL::ComPtr;

ComPtr<IXMLDOMDocument> Loaded(const std::wstring& text)
{
    constexpr CLSID kDocument30 = {0xF5078F32, 0xC551, 0x11D3, {0x89, 0xB9, 0x00, 0x00, 0xF8, 0x1F, 0xE2, 0x21}};
    constexpr IID kDocument = {0x2933BF81, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
    ComPtr<IXMLDOMDocument> document;
    if (FAILED(CoCreateInstance(
            kDocument30, nullptr, CLSCTX_INPROC_SERVER, kDocument, reinterpret_cast<void**>(document.GetAddressOf()))))
        return nullptr;
    document->put_async(VARIANT_FALSE);
    document->put_validateOnParse(VARIANT_FALSE);
    document->put_resolveExternals(VARIANT_FALSE);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    const BSTR copy = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    document->loadXML(copy, &loaded);
    SysFreeString(copy);
    return document;
}

} // namespace

void LoadBare(const std::wstring& text)
{
    Loaded(text);
}

void ReadBare(const std::wstring& text, const wchar_t* path)
{
    const ComPtr<IXMLDOMDocument> document = Loaded(text);
    const BSTR query = SysAllocString(path);
    ComPtr<IXMLDOMNodeList> nodes;
    LONG count = 0;
    if (document && SUCCEEDED(document->selectNodes(query, &nodes)))
        nodes->get_length(&count);
    SysFreeString(query);
    for (LONG i = 0; i < count; ++i) {
        ComPtr<IXMLDOMNode> node;
        BSTR nodeText = nullptr;
        if (SUCCEEDED(nodes->get_item(i, &node)))
            node->get_text(&nodeText);
        SysFreeString(nodeText);
    }
}

} // namespace voltaro::bench
