#include "VeskoApp/status/SafeMessage.h"

#include "VeskoApp/platform/SecretStore.h"
#include "VeskoApp/status/CaptureFailure.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/exchange/Exchange.h"
#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/HttpTransport.h"

namespace vesko {

namespace {

const char* message(const URLError& error)
{
    switch (error.kind()) {
    case URLError::notConnectedToInternet:
    case URLError::networkConnectionLost:
    case URLError::cannotFindHost:
    case URLError::cannotConnectToHost:
        return L10N_KEY(
            "Vesko", "The network is unavailable. Your recording is saved. Reconnect and retry.");
    case URLError::timedOut:
        return L10N_KEY("Vesko",
            "The provider timed out. Your recording is saved. A retry may incur another provider "
            "charge.");
    case URLError::cancelled:
    case URLError::other:
        break;
    }
    return L10N_KEY("Vesko",
        "The network request could not finish. Your recording is saved. Retry when ready.");
}

const char* message(const ExchangeFailure& failure)
{
    switch (failure.kind) {
    case ExchangeFailure::cancelled:
        return L10N_KEY("Vesko", "Cancelled. Nothing was changed.");
    case ExchangeFailure::laterVersion:
        return L10N_KEY(
            "Vesko", "This archive was made by a newer Vesko. Update the app before importing it.");
    case ExchangeFailure::tooLarge:
        return L10N_KEY(
            "Vesko", "This archive unpacks to more than Vesko takes in. Nothing was changed.");
    case ExchangeFailure::notALibrary:
        break;
    }
    return L10N_KEY("Vesko",
        "This file is no library that Vesko has exported, or it is damaged. Nothing was changed.");
}

} // namespace

std::string safeMessage(const std::exception_ptr& failure)
{
    try {
        std::rethrow_exception(failure);
    } catch (const VeskoError& error) {
        return error.errorDescription();
    } catch (const CaptureFailure& error) {
        return error.message();
    } catch (const KeychainFailure& error) {
        return error.errorDescription();
    } catch (const URLError& error) {
        return message(error);
    } catch (const ExchangeFailure& failure) {
        return message(failure);
    } catch (...) {
        return L10N_KEY("Vesko",
            "Vesko could not complete this operation. Your saved files were preserved. Check the "
            "data folder and try again.");
    }
}

} // namespace vesko
