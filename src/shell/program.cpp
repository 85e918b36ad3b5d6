#include "shell/program.h"

#include "base/ansi.h"
#include "base/text.h"
#include "console/main_hold.h"
#include "console/state.h"
#include "shell/connection.h"
#include "shell/main_menus.h"
#include "ui/window_class.h"

namespace voltaro {

void PrepareVersionTexts()
{
    state.binDirectory = Format(L"%lsbin", Widened(state.installDirectory.data()).c_str());
    state.versionCaption = Format(L"Voltaro - Standard Edition  [ Version : %hs ]", kVersion);
    state.trayTooltip = Format(L"Voltaro - Standard Edition  \n[ Version : %hs ]", kVersion);
}

void PrepareForCheck()
{
    const HWND main = WindowOf(WindowId::Main);
    HoldMainWindow(HoldReason::Check, nullptr);
    ApplyOccasion(main, Occasion::StartUp);
    state.connected = false;
    Repaint(main);
}

} // namespace voltaro
