#include "link/host_config.h"

#include "base/ansi.h"
#include "base/error_log.h"
#include "base/handles.h"
#include "base/installation.h"
#include "base/windows_api.h"
#include "link/document.h"
#include "link/refused_document.h"

namespace voltaro {
namespace {

constexpr const char* kModule = "TcpPortGetter";
constexpr std::size_t kPathUnits = 257;

constexpr std::size_t kMaxFileBytes = 1'000'000;

// Why the file is not read, or null; also when it cannot be opened: the load tells why.
const char* RefusedFile(const std::wstring& path)
{
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    std::string bytes(kMaxFileBytes, '\0');
    DWORD count = 0;
    if (!file || !ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr))
        return nullptr;
    bytes.resize(count);
    return count == kMaxFileBytes ? "a host configuration that is far too large is refused" : RefusedDocument(bytes);
}

void ReadTexts(const std::wstring& path, HostConfigText& port, HostConfigText& second)
{
    if (const char* reason = RefusedFile(path)) {
        LogFailure(kModule, __LINE__, "dom->load():", E_FAIL, reason);
        return;
    }
    if (const std::optional<Element> root = ParseFile(path, kModule))
        ChooseHostTexts(*root, port, second);
}

} // namespace

std::wstring HostConfigPath(const char* installDirectory)
{
    return std::wstring(FixedText<kPathUnits>(Widened(installDirectory) + L"conf\\hconfig.xml").view());
}

bool TcpPortGetter(HostConfigText& port, HostConfigText& second)
{
    InstallDirectory directory{};
    const bool found = ReadInstallPath(directory);
    ReadTexts(HostConfigPath(directory.data()), port, second);
    return found;
}

} // namespace voltaro
