#pragma once

#include "Finder.h"

#include <QObject>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

// One template search at a time on a thread of its own, so that the windows stay usable. The
// search works on a copy of the library; its progress and its end come back as signals on the
// thread that started it.
class FinderJob final : public QObject {
    Q_OBJECT
public:
    explicit FinderJob(QObject *parent = nullptr);
    // Stops a running search and waits for its thread.
    ~FinderJob() override;

    // Starts a search unless one runs.
    void Start(std::shared_ptr<const quorvel::DnaLibrary> library, const quorvel::FinderSettings &settings);
    // Asks the search to end soon; `finished` follows with what was found until then.
    void Cancel();
    // Cancels and waits for the thread; no `finished` follows.
    void Stop();
    bool Running() const { return thread_.joinable(); }

signals:
    void progressed(double fraction);
    // The result and the search's time in seconds.
    void finished(const quorvel::FinderResult &result, double seconds);

private:
    void ReportProgress(double fraction);
    void Finish(int run, const std::shared_ptr<quorvel::FinderResult> &result, double seconds);

    std::thread thread_;
    // Counts the searches started and stopped, so that the end of a stopped one is not taken
    // for the end of the next.
    int run_ = 0;
    std::atomic<bool> cancel_{false};
    std::atomic<double> fraction_{0.0};
    // One progress report waits in the event queue at a time; later fractions replace it.
    std::atomic<bool> progressQueued_{false};
};
