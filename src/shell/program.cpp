#include "shell/program.h"

#include "base/ansi.h"
#include "base/text.h"
#include "console/connection_state.h"
#include "console/main_hold.h"
#include "console/program_texts.h"
#include "console/windows.h"
#include "shell/connection.h"
#include "shell/main_menus.h"
#include "ui/window_class.h"

namespace voltaro {

void PrepareVersionTexts()
{
    programTexts.binDirectory = Format(L"%lsbin", Widened(programTexts.installDirectory.data()).c_str());
    programTexts.versionCaption = Format(L"Voltaro - Standard Edition  [ Version : %hs ]", kVersion);
    programTexts.trayTooltip = Format(L"Voltaro - Standard Edition  \n[ Version : %hs ]", kVersion);
}

void PrepareForCheck()
{
    const HWND main = WindowOf(WindowId::Main);
    HoldMainWindow(HoldReason::Check, nullptr);
    ApplyOccasion(main, Occasion::StartUp);
    connection.connected = false;
    Repaint(main);
}

} // namespace voltaro
