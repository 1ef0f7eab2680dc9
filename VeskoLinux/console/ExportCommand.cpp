#include "VeskoLinux/console/ExportCommand.h"

#include "VeskoCore/base/InputFile.h"
#include "VeskoCore/base/JsonError.h"
#include "VeskoCore/exchange/LibraryExport.h"
#include "VeskoCore/library/LibraryReader.h"
#include "VeskoCore/library/VeskoError.h"
#include "VeskoLinux/console/Terminal.h"

#include <cstdio>
#include <optional>
#include <system_error>

namespace vesko {

namespace {

// Without its lock: a document is replaced as a whole, so what is read is one whole state.
std::optional<Library> savedLibrary(const std::filesystem::path& root)
{
    const auto file = InputFile::open(FileSystem::posix(), root / "library.json", largestDocument);
    return file ? std::optional(readLibrary(*file)) : std::nullopt;
}

} // namespace

int exportToFolder(
    const std::filesystem::path& root, const std::filesystem::path& folder, const Clock& clock)
{
    Terminal terminal;
    try {
        if (!std::filesystem::is_directory(folder)) {
            return terminal.complain("there is no such folder");
        }
        const auto library = savedLibrary(root);
        if (!library) {
            return terminal.complain("there is no library yet");
        }
        const auto day = clock.now().text().substr(0, 10);
        const auto file = std::filesystem::canonical(folder) / ("vesko-" + day + ".zip");
        exportLibrary(*library, root / "recordings", file,
            { [&](double done) { terminal.showProgress(done); },
                [&] { return terminal.isInterrupted(); } });
        terminal.clear();
        std::puts(file.c_str());
        return 0;
    } catch (const ExchangeFailure&) {
        return terminal.complain("interrupted");
    } catch (const std::system_error& error) {
        return terminal.complain(error.code().message() + "; nothing was written");
    } catch (const JsonError&) {
        return terminal.complain("the library is damaged; Vesko itself may say more");
    } catch (const VeskoError&) {
        return terminal.complain("the library was made by a newer Vesko");
    }
}

} // namespace vesko
