#pragma once

#include "VeskoCore/speech/HttpTransport.h"

#include <cstddef>

namespace vesko {

// The transport over libcurl. Any thread may call it, and many at once: every exchange has a
// connection of its own, keeps no cookie and no cache, and is sent once and never again.
//
// Redirects are not followed, since a key must not travel to another host and a paid request must
// not be repeated: the 3xx answer is the result. Certificates are verified. The proxy settings of
// the environment hold.
//
// request.timeout ends an exchange in which no byte has moved for that long,
// request.resourceTimeout one that takes longer in all (timedOut). An answer of more than bodyLimit
// bytes is `other`. An answer that is not HTTP throws VeskoError::invalidResponse; every other
// failure is a URLError. A line end in a header or the method is refused before anything is sent.
HttpTransport curlTransport(std::size_t bodyLimit = std::size_t{ 16 } * 1024 * 1024);

} // namespace vesko
