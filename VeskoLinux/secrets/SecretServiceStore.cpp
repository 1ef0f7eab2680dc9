#include "VeskoLinux/secrets/SecretServiceStore.h"

#include "VeskoCore/base/DynamicLibrary.h"

#include <libsecret/secret.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace vesko {

namespace {

// The functions of libsecret, which brings those of GLib's input and output and of encryption.
struct LibSecret {
    DynamicLibrary library{ "libsecret-1.so.0" };
    decltype(&g_bus_get_sync) busGetSync = library["g_bus_get_sync"];
    decltype(&g_dbus_connection_set_exit_on_close) setExitOnClose
        = library["g_dbus_connection_set_exit_on_close"];
    decltype(&g_cancellable_new) cancellableNew = library["g_cancellable_new"];
    decltype(&g_cancellable_cancel) cancel = library["g_cancellable_cancel"];
    decltype(&g_cancellable_is_cancelled) isCancelled = library["g_cancellable_is_cancelled"];
    decltype(&secret_attributes_build) attributesBuild = library["secret_attributes_build"];
    decltype(&secret_service_get_type) serviceType = library["secret_service_get_type"];
    decltype(&secret_service_open_sync) serviceOpen = library["secret_service_open_sync"];
    decltype(&secret_service_search_sync) serviceSearch = library["secret_service_search_sync"];
    decltype(&secret_service_store_sync) serviceStore = library["secret_service_store_sync"];
    decltype(&secret_item_get_secret) itemGetSecret = library["secret_item_get_secret"];
    decltype(&secret_item_set_secret_sync) itemSetSecret = library["secret_item_set_secret_sync"];
    decltype(&secret_item_delete_sync) itemDelete = library["secret_item_delete_sync"];
    decltype(&secret_value_new) valueNew = library["secret_value_new"];
    decltype(&secret_value_get) valueGet = library["secret_value_get"];
    decltype(&secret_value_unref) valueUnref = library["secret_value_unref"];
};

// Loads it when the first secret is asked for.
const LibSecret& libsecret()
{
    try {
        static const LibSecret library;
        return library;
    } catch (const std::runtime_error&) {
        throw KeychainFailure();
    }
}

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class T>
using Object = std::unique_ptr<T, Unref>;

struct FreeItems {
    void operator()(GList* items) const { g_list_free_full(items, g_object_unref); }
};
using Items = std::unique_ptr<GList, FreeItems>;

struct UnrefValue {
    void operator()(SecretValue* value) const { libsecret().valueUnref(value); }
};
using Value = std::unique_ptr<SecretValue, UnrefValue>;

struct UnrefTable {
    void operator()(GHashTable* table) const { g_hash_table_unref(table); }
};
using Attributes = std::unique_ptr<GHashTable, UnrefTable>;

// The name of a schema is no part of the match, so that a key put there with secret-tool is
// found too.
const SecretSchema schema{ "app.vesko.openrouter", SECRET_SCHEMA_DONT_MATCH_NAME,
    { { "service", SECRET_SCHEMA_ATTRIBUTE_STRING }, { "account", SECRET_SCHEMA_ATTRIBUTE_STRING },
        { nullptr, {} } },
    0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr };

Attributes attributesOf(const std::string& account)
{
    return Attributes(libsecret().attributesBuild(
        &schema, "service", "app.vesko.openrouter", "account", account.c_str(), nullptr));
}

// Cancels what is under way when its time is up.
class Deadline {
public:
    explicit Deadline(std::chrono::milliseconds patience)
        : m_cancellable(libsecret().cancellableNew())
        , m_thread([this, patience](const std::stop_token& done) {
            std::unique_lock lock(m_mutex);
            m_waiting.wait_for(lock, done, patience, [] { return false; });
            if (!done.stop_requested())
                libsecret().cancel(m_cancellable.get());
        })
    {
    }
    GCancellable* cancellable() const { return m_cancellable.get(); }

private:
    Object<GCancellable> m_cancellable;
    std::mutex m_mutex;
    std::condition_variable_any m_waiting;
    std::jthread m_thread;
};

// One conversation with the store. Nothing is kept between two: a store that was started, or
// started again, in the meantime is found.
class Conversation {
public:
    explicit Conversation(std::chrono::milliseconds patience)
        : m_deadline(patience)
        , m_bus(libsecret().busGetSync(G_BUS_TYPE_SESSION, m_deadline.cancellable(), nullptr))
    {
        if (!m_bus)
            throw KeychainFailure(KeychainFailure::absent);
        // GLib would end the whole program, a recording included, when the bus goes away.
        libsecret().setExitOnClose(m_bus.get(), FALSE);
        m_service.reset(libsecret().serviceOpen(libsecret().serviceType(), nullptr,
            SECRET_SERVICE_OPEN_SESSION, m_deadline.cancellable(), nullptr));
        if (!m_service)
            throw KeychainFailure(libsecret().isCancelled(m_deadline.cancellable())
                    ? KeychainFailure::unusable
                    : KeychainFailure::absent);
    }

    // Stores list the items of locked rings too, so no item means that there is none. An item
    // whose ring is or stays locked comes without its secret.
    Items find(const std::string& account, int flags)
    {
        GError* error = nullptr;
        const auto attributes = attributesOf(account);
        // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): flags, which combine
        const auto combined = static_cast<SecretSearchFlags>(flags);
        Items items(libsecret().serviceSearch(m_service.get(), &schema, attributes.get(), combined,
            m_deadline.cancellable(), &error));
        // The search swallows a cancelled unlock.
        if (error || libsecret().isCancelled(m_deadline.cancellable())) {
            g_clear_error(&error);
            throw KeychainFailure();
        }
        return items;
    }

    SecretService* service() const { return m_service.get(); }
    GCancellable* cancellable() const { return m_deadline.cancellable(); }

private:
    Deadline m_deadline;
    Object<GDBusConnection> m_bus;
    Object<SecretService> m_service;
};

void require(gboolean done)
{
    if (!done)
        throw KeychainFailure();
}

bool isUtf8(const char* bytes, gsize length)
{
    return g_utf8_validate_len(bytes, length, nullptr);
}

} // namespace

std::optional<Secret> SecretServiceStore::load(const std::string& account)
{
    Conversation store(m_patience);
    const auto items = store.find(account, SECRET_SEARCH_LOAD_SECRETS | SECRET_SEARCH_UNLOCK);
    if (!items)
        return std::nullopt;
    const Value value(libsecret().itemGetSecret(static_cast<SecretItem*>(items->data)));
    if (!value)
        throw KeychainFailure();
    gsize length = 0;
    const char* bytes = libsecret().valueGet(value.get(), &length);
    if (!isUtf8(bytes, length))
        throw KeychainFailure();
    return std::string_view(bytes, length);
}

bool SecretServiceStore::has(const std::string& account)
{
    Conversation store(m_patience);
    const auto items = store.find(account, SECRET_SEARCH_LOAD_SECRETS);
    if (!items)
        return false;
    const Value value(libsecret().itemGetSecret(static_cast<SecretItem*>(items->data)));
    if (!value)
        return true; // locked away
    gsize length = 0;
    const char* bytes = libsecret().valueGet(value.get(), &length);
    return isUtf8(bytes, length);
}

void SecretServiceStore::save(std::string_view value, const std::string& account)
{
    if (!isUtf8(value.data(), value.size()))
        throw KeychainFailure();
    Conversation store(m_patience);
    // libsecret keeps its copy in memory that is never swapped and wipes it.
    const Value secret(
        libsecret().valueNew(value.data(), static_cast<gssize>(value.size()), "text/plain"));
    if (const auto items = store.find(account, SECRET_SEARCH_UNLOCK)) {
        require(libsecret().itemSetSecret(
            static_cast<SecretItem*>(items->data), secret.get(), store.cancellable(), nullptr));
        return;
    }
    const auto attributes = attributesOf(account);
    const auto label = "Vesko: " + account;
    require(libsecret().serviceStore(store.service(), &schema, attributes.get(),
        SECRET_COLLECTION_DEFAULT, label.c_str(), secret.get(), store.cancellable(), nullptr));
}

void SecretServiceStore::remove(const std::string& account)
{
    Conversation store(m_patience);
    const auto items = store.find(account, SECRET_SEARCH_ALL | SECRET_SEARCH_UNLOCK);
    for (const GList* item = items.get(); item; item = item->next)
        require(libsecret().itemDelete(
            static_cast<SecretItem*>(item->data), store.cancellable(), nullptr));
}

} // namespace vesko
