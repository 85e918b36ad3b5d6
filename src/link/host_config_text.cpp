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

bool DeclaresDocumentType(std::wstring_view text)
{
    return text.find(L"<!DOCTYPE") != std::wstring_view::npos;
}

bool DeclaresDocumentType(std::string_view bytes)
{
    std::wstring text;
    for (const char byte : bytes) {
        if (byte != '\0')
            text.push_back(static_cast<unsigned char>(byte));
    }
    return DeclaresDocumentType(text);
}

} // namespace voltaro
