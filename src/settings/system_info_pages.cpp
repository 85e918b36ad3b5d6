// The five pages of the system information window: what the agent reports about the machine, as lists of names and
// values.
#include "settings/system_info_pages.h"

#include "console/agent_records.h"
#include "resources/resource_ids.h"
#include "settings/machine_texts.h"
#include "ui/canvas.h"
#include "ui/controls.h"
#include "ui/list_view.h"
#include "ui/theme.h"
#include "ui/window_class.h"

namespace voltaro {
namespace {

enum Id : int { kList = 101, kSecondList };

// clang-format off
constexpr Control kCpuControls[] = {
    {Kind::ListView, kList, L"CPU Exceptions List",   90, 15, 545, 355, kPlain, L"CPU"},
};
constexpr Control kOsControls[] = {
    {Kind::ListView, kList, L"CPU Exceptions List",   90, 15, 545, 355, kPlain, L"Operating system"},
};
constexpr Control kPowerControls[] = {
    {Kind::ListView, kList, L"Power Exceptions List", 90, 15, 545, 355, kPlain, L"Power capabilities"},
};
constexpr Control kNetworkControls[] = {
    {Kind::ListView, kList, L"Power Exceptions List", 90, 15, 545, 355, kPlain, L"Network"},
};
constexpr Control kDiskControls[] = {
    {Kind::Label,    kNoId,       L"Physical Disk Information :", 90,  10, 545,  15},
    {Kind::ListView, kList,       L"Physical Disk List",          90,  25, 545, 150},
    {Kind::Label,    kNoId,       L"Logical Disk Information :",  90, 185, 545,  15},
    {Kind::ListView, kSecondList, L"Logical Disk List",           90, 200, 545, 175},
};
static_assert(FitInside(kCpuControls, 645, 380) && FitInside(kDiskControls, 645, 380));

// Long values of the first form are reached by scrolling sideways.
constexpr Column kCpuColumns[]   = {{L"Description", 180}, {L"Value", 500}};
constexpr Column kPowerColumns[] = {{L"Description", 180}, {L"Value", 340}};

struct Page {
    WindowId id;
    std::span<const Control> controls;
    std::span<const Column> columns;
    bool pictures = false; // of the machine and its system, beside the list
};
constexpr Page kPages[] = {
    {WindowId::SystemInfoCpu,     kCpuControls,     kCpuColumns, true},
    {WindowId::SystemInfoPower,   kPowerControls,   kPowerColumns},
    {WindowId::SystemInfoOs,      kOsControls,      kCpuColumns, true},
    {WindowId::SystemInfoNetwork, kNetworkControls, kPowerColumns},
    {WindowId::SystemInfoDisks,   kDiskControls,    kPowerColumns},
};

constexpr struct {
    WindowId page;
    int list;
    DetailSection section;
} kLists[] = {
    {WindowId::SystemInfoCpu,     kList,       DetailSection::Processor},
    {WindowId::SystemInfoOs,      kList,       DetailSection::OperatingSystem},
    {WindowId::SystemInfoPower,   kList,       DetailSection::PowerCapabilities},
    {WindowId::SystemInfoNetwork, kList,       DetailSection::Network},
    {WindowId::SystemInfoDisks,   kList,       DetailSection::PhysicalDisks},
    {WindowId::SystemInfoDisks,   kSecondList, DetailSection::LogicalDisks},
};

constexpr struct {
    SystemLogo logo;
    int bitmap;
    int height;
    void (*draw)(HDC dc, int resource, int x, int y, int width, int height);
} kLogos[] = {
    {SystemLogo::Panes,  IDB_SYSTEM_PANES,  38, DrawTransparentBitmap},
    {SystemLogo::Ring,   IDB_SYSTEM_RING,   25, DrawTransparentBitmap},
    {SystemLogo::Prompt, IDB_SYSTEM_PROMPT, 25, DrawBitmap},
};
// clang-format on

constexpr RECT kPictures = {0, 0, 90, 150};

LRESULT OnCreate(HWND window, const Page& page)
{
    if (!CreateControls(window, page.controls, WindowFont()))
        return -1;
    for (const int id : {kList, kSecondList}) {
        if (const HWND list = ControlOf(window, id))
            SetColumns(list, page.columns);
    }
    return 0;
}

LRESULT AnswerPage(const Page& page, HWND window, UINT message, WPARAM w, LPARAM l)
{
    switch (message) {
    case WM_CREATE: return OnCreate(window, page);
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: {
        const Canvas canvas(window);
        if (page.pictures)
            DrawMachine(canvas.Dc(), agentRecords.details);
        return 0;
    }
    default: return DefaultAnswer(window, message, w, l);
    }
}

constexpr const Page& PageOf(WindowId id)
{
    for (const Page& page : kPages) {
        if (page.id == id)
            return page;
    }
    throw "no such page";
}

} // namespace

template <WindowId page>
LRESULT CALLBACK SystemInfoPageProc(HWND window, UINT message, WPARAM w, LPARAM l)
{
    static constexpr const Page& kPage = PageOf(page);
    return AnswerPage(kPage, window, message, w, l);
}
template LRESULT CALLBACK SystemInfoPageProc<WindowId::SystemInfoCpu>(HWND, UINT, WPARAM, LPARAM);
template LRESULT CALLBACK SystemInfoPageProc<WindowId::SystemInfoPower>(HWND, UINT, WPARAM, LPARAM);
template LRESULT CALLBACK SystemInfoPageProc<WindowId::SystemInfoOs>(HWND, UINT, WPARAM, LPARAM);
template LRESULT CALLBACK SystemInfoPageProc<WindowId::SystemInfoNetwork>(HWND, UINT, WPARAM, LPARAM);
template LRESULT CALLBACK SystemInfoPageProc<WindowId::SystemInfoDisks>(HWND, UINT, WPARAM, LPARAM);

void FillSystemInfoPages()
{
    for (const auto& row : kLists) {
        const HWND page = WindowOf(row.page);
        FillList(ControlOf(page, row.list), agentRecords.details.RowCount(row.section),
            [section = row.section](std::size_t i, std::size_t column) {
                const NamedValue& field = agentRecords.details.Row(section, i);
                return column == 0 ? field.name.c_str() : field.value.c_str();
            });
        InvalidateRect(page, &kPictures, FALSE);
    }
}

void DrawMachine(HDC dc, const SystemDetails& details)
{
    const int picture = IsMachineOn(details.StateText()) ? IDB_MACHINE_ON : IDB_MACHINE_OFF;
    DrawTransparentBitmap(dc, picture, 5, 15, 75, 75);
    const SystemLogo logo = LogoOf(SystemName(details));
    for (const auto& row : kLogos) {
        if (row.logo == logo)
            row.draw(dc, row.bitmap, 4, 99, 80, row.height);
    }
}

} // namespace voltaro
