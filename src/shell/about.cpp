#include "shell/about.h"

#include "console/activation.h"
#include "console/state.h"
#include "shell/main_window.h"

namespace voltaro {

void OnAbout(HWND main)
{
    ReadActivationStatus();
    ShowWindow(WindowOf(WindowId::Activation), SW_SHOW);
    ShowNormalControls(main);
}

} // namespace voltaro
