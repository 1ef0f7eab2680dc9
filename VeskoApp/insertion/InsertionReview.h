#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/insertion/FocusDestination.h"
#include "VeskoCore/insertion/InsertedTextScope.h"
#include "VeskoCore/library/DictionarySuggestion.h"

#include <functional>
#include <memory>
#include <vector>

namespace vesko {

// Watches a pasted fragment in its field, for two minutes at most, to see what the user changes in
// it before sending it. One review at a time. Main thread.
class InsertionReview {
public:
    // What the user corrected, and whether the text was seen to be sent. Comes once or, for a
    // review that is stopped, never saw its paste arrive or has nothing to tell, never.
    using OnCorrections = std::function<void(std::vector<DictionarySuggestion>, bool sent)>;

    InsertionReview(FocusedField& fields, EventClock& clock);

    // After the paste of the text into the field. In place of whatever was running; nothing runs
    // if there is nothing that could be watched.
    void start(FocusDestination destination, const std::string& text, OnCorrections onCorrections);
    // Return was pressed. If the fragment stands in the field, and the field is empty soon after,
    // it was sent.
    void armSend();
    // Forgets the review, without a report.
    void stop();

private:
    struct Review {
        FocusDestination destination;
        InsertedTextScope scope;
        OnCorrections onCorrections;
        double end = 0; // of the two minutes; all moments are of the uptime
        int unequalReads = 0; // while the paste is awaited
        bool landed = false;
        std::string lastEdited; // the newest known state of the fragment
        std::optional<double> sendDeadline; // until then an empty field was sent
        std::optional<double> maybeDeadline; // so of a Return whose reading is under way
    };

    void lookAfter(double seconds);
    Task<> look(std::shared_ptr<Review> review);
    Task<> lookAtReturn(std::shared_ptr<Review> review);
    using Reading = std::expected<std::string, FocusDestination::Unread>;

    void awaitPaste(const Reading& value);
    void watch(const Reading& value);
    void goOnWatching();
    bool inTimeToBeSent() const;
    void finish(bool sent);

    FocusedField& m_fields;
    EventClock& m_clock;
    std::shared_ptr<Review> m_review; // none: idle. A reading of another one comes too late
    Timer m_next;
    TaskScope m_tasks;
};

} // namespace vesko
