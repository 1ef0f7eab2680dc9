#pragma once

#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <filesystem>
#include <string>

namespace vesko {

// Small programs in the place of engines.
class StandIns {
public:
    // A shell script; `$dir` is a folder that is there as long as this object.
    std::filesystem::path script(const std::string& body, const std::string& name = "engine") const
    {
        return program("#!/bin/sh\ndir='" + path().string() + "'\n" + body, name);
    }
    std::filesystem::path program(const std::string& text, const std::string& name = "engine") const
    {
        const auto file = path() / name;
        putBytes(file, text);
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        return file;
    }
    const std::filesystem::path& path() const { return m_folder.path(); }

private:
    TemporaryFolder m_folder;
};

// What a well-behaved engine begins with.
inline const std::string introduction = "echo 'vesko-engine 1'\necho 'name stand-in'\n"
                                        "echo 'version 2.1'\necho 'licence MIT'\n"
                                        "echo 'languages en ru de-AT auto'\necho ready\n";

} // namespace vesko
