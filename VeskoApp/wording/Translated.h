#pragma once

#include <QCoreApplication>
#include <QString>

#include <string>

namespace vesko {

// What the user reads for a key of the catalogues; a text without a translation stands for itself.
inline QString translated(const std::string& key)
{
    return key.empty() ? QString() : QCoreApplication::translate("Vesko", key.c_str());
}

// The same for a text that says how many: in the form that goes with the count, which takes the
// place of %1.
inline QString translated(const std::string& key, std::size_t count)
{
    return QCoreApplication::translate("Vesko", key.c_str(), nullptr, static_cast<int>(count))
        .arg(count);
}

} // namespace vesko
