#pragma once

#include "VeskoCore/base/DynamicLibrary.h"
#include "VeskoCore/speech/HttpTransport.h"

#include <curl/curl.h>
#include <stdexcept>

namespace vesko {

// The functions of libcurl, which brings some thirty libraries with it. What it holds in memory is
// wiped when it lets go of it: keys are among that.
struct Curl {
    // Throws std::runtime_error.
    Curl();

    DynamicLibrary library{ "libcurl.so.4" };
    decltype(&curl_global_init_mem) globalInitMem = library["curl_global_init_mem"];
    decltype(&curl_easy_init) easyInit = library["curl_easy_init"];
    decltype(&curl_easy_cleanup) easyCleanup = library["curl_easy_cleanup"];
    decltype(&curl_easy_setopt) easySetopt = library["curl_easy_setopt"];
    decltype(&curl_easy_perform) easyPerform = library["curl_easy_perform"];
    decltype(&curl_easy_getinfo) easyGetinfo = library["curl_easy_getinfo"];
    decltype(&curl_easy_header) easyHeader = library["curl_easy_header"];
    decltype(&curl_multi_init) multiInit = library["curl_multi_init"];
    decltype(&curl_multi_cleanup) multiCleanup = library["curl_multi_cleanup"];
    decltype(&curl_multi_add_handle) multiAddHandle = library["curl_multi_add_handle"];
    decltype(&curl_multi_remove_handle) multiRemoveHandle = library["curl_multi_remove_handle"];
    decltype(&curl_multi_perform) multiPerform = library["curl_multi_perform"];
    decltype(&curl_multi_poll) multiPoll = library["curl_multi_poll"];
    decltype(&curl_multi_wakeup) multiWakeup = library["curl_multi_wakeup"];
    decltype(&curl_multi_info_read) multiInfoRead = library["curl_multi_info_read"];
    decltype(&curl_slist_append) slistAppend = library["curl_slist_append"];
    decltype(&curl_slist_free_all) slistFreeAll = library["curl_slist_free_all"];
    decltype(&curl_url) url = library["curl_url"];
    decltype(&curl_url_set) urlSet = library["curl_url_set"];
    decltype(&curl_url_get) urlGet = library["curl_url_get"];
    decltype(&curl_free) free = library["curl_free"];
    decltype(&curl_url_cleanup) urlCleanup = library["curl_url_cleanup"];
};

// Loads it with the first call; throws URLError::other if it is missing. Any thread.
inline const Curl& curl()
{
    try {
        static const Curl library;
        return library;
    } catch (const std::runtime_error&) {
        throw URLError(URLError::other);
    }
}

} // namespace vesko
