#include "VeskoApp/views/IconSource.h"

namespace vesko {

QUrl IconSource::url() const
{
    if (m_name.isEmpty())
        return {};
    return { QStringLiteral("image://icon/%1?%2").arg(m_name, m_color.name()) };
}

} // namespace vesko
