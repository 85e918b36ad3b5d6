#include "console/agent_lost.h"

#include "console/connection_state.h"
#include "console/main_view.h"
#include "console/ui_calls.h"
#include "console/windows.h"
#include "ui/boxes.h"
#include "ui/ui_thread.h"

namespace voltaro {
namespace {

// The hint is laid out otherwise than in the connection check's box; users know both.
constexpr Box kLost = {L"Connection Issue",
    L"Voltaro service on 'localhost' is not responding!\nPlease check if Voltaro service is started and try to "
    L"reconnect "
    L".\n\nHint :To check for services (in Windows) go to Start->Run.. type 'services.msc' press Enter.\n         To "
    L"reconnect (in Voltaro Console Menu) click on Voltaro->Reinitialize ."};

void ShowLoss()
{
    if (mainView.showAgentLost)
        mainView.showAgentLost();
    ShowMessage(WindowOf(WindowId::Main), kLost); // mostly hidden in the tray: the box then stands by itself, in front
}

} // namespace

void OnAgentLost()
{
    if (!connection.connected.TestAndClear())
        return;
    connection.detailsAnswered = false;
    if (OnUiThread())
        ShowLoss();
    else
        PostOnUi([] {
            if (!connection.connected) // else the user has reconnected before this came
                ShowLoss();
        });
}

} // namespace voltaro
