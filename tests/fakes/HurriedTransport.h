#pragma once

#include "VeskoCore/speech/CurlTransport.h"

namespace vesko {

// The transport over libcurl, for a test that can't wait as long as its client would.
inline HttpTransport hurriedTransport(double resourceTimeout)
{
    return [transport = curlTransport(), resourceTimeout](
               HttpRequest request, const std::stop_token& stop) {
        request.resourceTimeout = resourceTimeout;
        return transport(request, stop);
    };
}

} // namespace vesko
