#pragma once

#include "VeskoCore/base/DynamicLibrary.h"

#include <zip.h>

#include <memory>

namespace vesko {

// libzip, loaded with the first archive.
struct LibZip {
    DynamicLibrary library{ VESKO_LIBZIP };
    decltype(&zip_open) open = library["zip_open"];
    decltype(&zip_close) close = library["zip_close"];
    decltype(&zip_discard) discard = library["zip_discard"];
    decltype(&zip_get_error) getError = library["zip_get_error"];
    decltype(&zip_error_code_zip) errorCode = library["zip_error_code_zip"];
    decltype(&zip_error_code_system) systemCode = library["zip_error_code_system"];
    decltype(&zip_source_buffer) sourceBuffer = library["zip_source_buffer"];
    decltype(&zip_source_file) sourceFile = library["zip_source_file"];
    decltype(&zip_source_free) sourceFree = library["zip_source_free"];
    decltype(&zip_file_add) fileAdd = library["zip_file_add"];
    decltype(&zip_set_file_compression) setCompression = library["zip_set_file_compression"];
    decltype(&zip_register_progress_callback_with_state) onProgress
        = library["zip_register_progress_callback_with_state"];
    decltype(&zip_register_cancel_callback_with_state) onCancel
        = library["zip_register_cancel_callback_with_state"];
    decltype(&zip_name_locate) locate = library["zip_name_locate"];
    decltype(&zip_stat_index) stat = library["zip_stat_index"];
    decltype(&zip_fopen_index) openFile = library["zip_fopen_index"];
    decltype(&zip_fread) read = library["zip_fread"];
    decltype(&zip_fclose) closeFile = library["zip_fclose"];

    static const LibZip& get()
    {
        static const LibZip library;
        return library;
    }
};

// An archive that is left as it was unless it is closed.
struct DiscardZip {
    void operator()(zip_t* archive) const { LibZip::get().discard(archive); }
};
using ZipArchive = std::unique_ptr<zip_t, DiscardZip>;

} // namespace vesko
