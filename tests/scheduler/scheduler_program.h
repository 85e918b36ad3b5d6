#pragma once

#include "support/program.h"

namespace voltaro {

constexpr auto kList = WindowId::JobList, kEditor = WindowId::JobEditor;

// The program with its job windows, driven by what stands on the screen.
struct SchedulerProgram : LoadedProgram {
    explicit SchedulerProgram(const wchar_t* scenario = L"battery")
        : LoadedProgram(scenario)
    {
        Open();
    }
    void Open() { Command(WindowId::Main, kJobScheduler); }

    // Opens the editor on a row, or on a new job.
    void Edit(int row)
    {
        SelectRow(Jobs(), row);
        Do({{L"Modify Job.."}});
    }
    void Add(const wchar_t* name) { Do({{L"Add Job.."}, {L"Job Name :", name}}); }
    void AddTask(const wchar_t* path) { Do({{L".exe/.bat File Path :", path}, {L"Add Task"}}); }

    [[nodiscard]] static HWND Jobs() { return Find(L"Scheduled Job List", kList); }
    [[nodiscard]] static HWND Tasks() { return Find(L"Scheduled Task List", kEditor); }
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
