#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vesko {

// What the sources of the program say, read without a compiler: enough of C++ and QML for how they
// are written here.

struct SourceFile {
    QString path; // below the repository
    QString content;

    bool isQml() const { return path.endsWith(QStringLiteral(".qml")); }
};

// All C++ and QML of the three modules.
std::vector<SourceFile> sourceFiles();

QString contentOf(const QString& path);

// The keys that a source marks as texts for a user, in its order.
QStringList keysIn(const SourceFile& source);

// How often a source marks something as a text for a user; more than there are keys if one is no
// plain text.
qsizetype marksIn(const SourceFile& source);

// What looks like a text for a user and isn't marked as one.
QStringList unmarkedIn(const SourceFile& source);

// All keys of the program, each once.
QStringList allKeys();

} // namespace vesko
