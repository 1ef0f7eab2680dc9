#pragma once

#include <QString>
#include <QVariant>

#include <optional>

namespace vesko {

// Questions to other programs over the session's bus. Each blocks for three seconds at most, and
// nobody is started for it.

// The first value of the answer; none if nobody gave one.
std::optional<QVariant> ask(const QString& service, const QString& path, const QString& interface,
    const QString& method, const QVariantList& arguments = {});
std::optional<QVariant> property(
    const QString& service, const QString& path, const QString& interface, const QString& name);
// Whether somebody has the name, or would be started for it.
bool serves(const QString& service);

} // namespace vesko
