#pragma once

#include "shell/main_commands.h"
#include "support/box_script.h"
#include "support/labelled.h"
#include "support/program.h"
#include "support/test_window.h"
#include "ui/controls.h"
#include "ui/list_view.h"

namespace voltaro {

inline constexpr auto kList = WindowId::JobList;
inline constexpr auto kEditor = WindowId::JobEditor;
inline constexpr auto kActions = WindowId::JobActions;
inline constexpr auto kTasks = WindowId::JobTasks;

// The program with its job windows, driven by what stands on the screen.
struct SchedulerProgram : ConsoleProgram {
    explicit SchedulerProgram(const wchar_t* scenario = L"battery")
        : ConsoleProgram(*simulator::FindScenario(scenario))
    {
        Load();
    }

    void Open() { Command(WindowId::Main, kJobScheduler); }

    // As a click does; a check box or radio turns too.
    void Click(WindowId window, const wchar_t* label)
    {
        SendMessageW(Labelled(WindowOf(window), label), BM_CLICK, 0, 0);
        Pump();
    }
    void Set(WindowId window, const wchar_t* label, std::wstring_view text)
    {
        Type(window, IdOf(WindowOf(window), label), text);
    }
    void Pick(WindowId window, const wchar_t* label, std::wstring_view entry)
    {
        Choose(window, IdOf(WindowOf(window), label), entry);
    }
    void PickTime(WindowId window, const wchar_t* label, SYSTEMTIME time)
    {
        DateTime_SetSystemtime(Labelled(WindowOf(window), label), GDT_VALID, &time);
    }
    [[nodiscard]] std::wstring Shown(WindowId window, const wchar_t* label)
    {
        return WindowText(Labelled(WindowOf(window), label));
    }
    [[nodiscard]] bool Enabled(WindowId window, const wchar_t* label)
    {
        const HWND control = Labelled(WindowOf(window), label);
        return IsShown(control) && IsWindowEnabled(control);
    }
    [[nodiscard]] bool IsOpen(WindowId window) { return IsWindowVisible(WindowOf(window)) != FALSE; }

    // The list views of the two windows, and a row of theirs on one line.
    [[nodiscard]] HWND Jobs() { return Labelled(WindowOf(kList), L"Scheduled Job List"); }
    [[nodiscard]] HWND Tasks() { return Labelled(WindowOf(kTasks), L"Scheduled Task List"); }
    [[nodiscard]] static std::wstring Row(HWND list, int row, int columns)
    {
        std::wstring line = CellOf(list, row, 0);
        for (int column = 1; column < columns; ++column)
            line += L"|" + CellOf(list, row, column);
        return line;
    }

    // Opens the editor on the row, or on a new job.
    void Edit(int row)
    {
        SelectRow(Jobs(), row);
        Click(kList, L"Modify Job..");
    }
    void Add(const wchar_t* name)
    {
        Click(kList, L"Add Job..");
        Set(kEditor, L"Job Name :", name);
    }
    void AddTask(std::wstring_view path)
    {
        Set(kTasks, L".exe/.bat File Path :", path);
        Click(kTasks, L"Add Task");
    }
};

} // namespace voltaro
