#pragma once

#include "scheduler/job_controls.h"
#include "support/program.h"

namespace voltaro {

inline constexpr auto kList = WindowId::JobList, kEditor = WindowId::JobEditor, kActions = WindowId::JobActions,
                      kTasks = WindowId::JobTasks;

// One thing that the user does: a button, box or radio is clicked, anything else takes the text.
struct Step {
    WindowId window;
    const wchar_t* label;
    const wchar_t* text = nullptr;
};

// The program with its job windows, driven by what stands on the screen.
struct SchedulerProgram : ConsoleProgram {
    explicit SchedulerProgram(const wchar_t* scenario = L"battery")
        : ConsoleProgram(*simulator::FindScenario(scenario))
    {
        Load();
        Open();
    }
    BoxScript boxes{std::initializer_list<ExpectedBox>{}};

    void Open() { Command(WindowId::Main, kJobScheduler); }

    void Do(std::initializer_list<Step> steps)
    {
        for (const Step& step : steps) {
            const HWND window = WindowOf(step.window), control = Labelled(window, step.label);
            const int id = GetDlgCtrlID(control);
            const std::wstring kind = ClassOf(control);
            if (kind == DATETIMEPICK_CLASSW)
                (step.text[2] == L':' ? ShowTime : ShowDate)(window, id, step.text);
            else if (kind == WC_COMBOBOXW)
                Choose(step.window, id, step.text);
            else if (kind == WC_EDITW)
                Type(step.window, id, step.text);
            else
                SendMessageW(control, BM_CLICK, 0, 0);
        }
        Pump();
    }
    // Opens the editor on a row, or on a new job.
    void Edit(int row)
    {
        SelectRow(Jobs(), row);
        Do({{kList, L"Modify Job.."}});
    }
    void Add(const wchar_t* name) { Do({{kList, L"Add Job.."}, {kEditor, L"Job Name :", name}}); }
    void AddTask(const wchar_t* path) { Do({{kTasks, L".exe/.bat File Path :", path}, {kTasks, L"Add Task"}}); }
    void DoubleClick(HWND list, int row)
    {
        SelectRow(list, row);
        const NMHDR twice{list, static_cast<UINT_PTR>(GetDlgCtrlID(list)), static_cast<UINT>(NM_DBLCLK)};
        SendMessageW(GetParent(list), WM_NOTIFY, twice.idFrom, reinterpret_cast<LPARAM>(&twice));
    }

    [[nodiscard]] std::wstring Text(WindowId window, const wchar_t* label)
    {
        return WindowText(Labelled(WindowOf(window), label));
    }
    [[nodiscard]] bool IsEnabled(WindowId window, const wchar_t* label)
    {
        return IsWindowEnabled(Labelled(WindowOf(window), label)) != FALSE;
    }
    [[nodiscard]] HWND Jobs() { return Labelled(WindowOf(kList), L"Scheduled Job List"); }
    [[nodiscard]] HWND Tasks() { return Labelled(WindowOf(kTasks), L"Scheduled Task List"); }
    // A row on one line; a column of all rows.
    [[nodiscard]] static std::wstring Row(HWND list, int row)
    {
        SelectRow(list, row);
        const std::wstring line = ListText(list, true);
        return line.substr(0, line.find(L'\r'));
    }
    [[nodiscard]] static std::wstring Column(HWND list, int column)
    {
        std::wstring cells;
        for (int row = 0; row < RowCount(list); ++row)
            cells += (row == 0 ? L"" : L",") + CellOf(list, row, column);
        return cells;
    }
};

} // namespace voltaro
