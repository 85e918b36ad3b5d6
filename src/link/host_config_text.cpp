#include "link/host_config_text.h"

#include "link/replies.h"

#include <vector>

namespace voltaro {
namespace {

constexpr std::size_t kPortPosition = 1;
constexpr std::size_t kSecondPosition = 4;

} // namespace

void ChooseHostTexts(const Element& root, HostConfigText& port, HostConfigText& second)
{
    const std::vector<const Element*> settings = ChildrenOfEvery(root, L"Hostsettings");
    if (settings.size() > kPortPosition)
        port = settings[kPortPosition]->text;
    if (settings.size() > kSecondPosition)
        second = settings[kSecondPosition]->text;
}

} // namespace voltaro
