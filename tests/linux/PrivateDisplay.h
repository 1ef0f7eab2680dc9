#pragma once

#include "tests/linux/PrivateBus.h"

namespace vesko {

// An X server of the test's own, under DISPLAY while this lives.
class PrivateDisplay {
public:
    PrivateDisplay()
    {
        PrivateBus::begin(m_server, QStringLiteral("Xvfb"),
            { QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-nolisten"),
                QStringLiteral("tcp"), QStringLiteral("-noreset"), QStringLiteral("-ac") });
        while (!m_server.canReadLine())
            if (!m_server.waitForReadyRead(PrivateBus::deadline))
                throw std::runtime_error("Xvfb did not start");
        qputenv("DISPLAY", ":" + m_server.readLine().trimmed());
    }
    ~PrivateDisplay() { PrivateBus::end(m_server); }

private:
    QProcess m_server;
};

} // namespace vesko
