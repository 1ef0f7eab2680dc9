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

} // namespace vesko
