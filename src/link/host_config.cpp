#include "link/host_config.h"

#include "base/ansi.h"
#include "base/installation.h"
#include "base/windows_api.h"
#include "link/document.h"
#include "link/error_log.h"
#include "link/replies.h"
#include "ui/boxes.h"

#include <cstdio>
#include <vector>

namespace voltaro {
namespace {

constexpr Box kNoDirectory = {L"Error!", L"Could not read Environment variable 'VOLTARO_HOME' !"};
constexpr const char* kModule = "TcpPortGetter";
constexpr std::size_t kPathUnits = 257;

// The agent chooses the elements by position, never by name.
constexpr std::size_t kPortPosition = 1;
constexpr std::size_t kSecondPosition = 4;

// Whether the file declares a document type; judged from its first part, where such a declaration must stand.
bool FileDeclaresDocumentType(const std::wstring& path)
{
    std::FILE* file = _wfopen(path.c_str(), L"rb");
    if (!file)
        return false;
    std::string bytes(1'000'000, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
    std::fclose(file);
    return DeclaresDocumentType(bytes);
}

} // namespace

std::wstring HostConfigPath(const char* installDirectory)
{
    return std::wstring(FixedText<kPathUnits>(Widened(installDirectory) + L"conf\\hconfig.xml").view());
}

void TcpPortGetter(HostConfigText& port, HostConfigText& second)
{
    InstallDirectory directory{};
    if (!ReadInstallPath(directory))
        Tell(nullptr, kNoDirectory);
    const std::wstring path = HostConfigPath(directory.data());
    if (FileDeclaresDocumentType(path)) {
        LogFailure(kModule, __LINE__, "dom->load():", E_FAIL, "a host configuration with a document type is refused");
        return;
    }
    const std::optional<Element> root = ParseFile(path, kModule);
    const Element* settings = root ? FirstElement(*root, L"Hostsettings") : nullptr;
    if (!settings)
        return;
    if (settings->children.size() > kPortPosition)
        port = settings->children[kPortPosition].text;
    if (settings->children.size() > kSecondPosition)
        second = settings->children[kSecondPosition].text;
}

} // namespace voltaro
