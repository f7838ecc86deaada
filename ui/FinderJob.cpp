#include "FinderJob.h"

#include <utility>

FinderJob::FinderJob(QObject *parent) : QObject(parent) {}

FinderJob::~FinderJob() {
    Stop();
}

void FinderJob::Start(std::shared_ptr<const quorvel::DnaLibrary> library, const quorvel::FinderSettings &settings) {
    if (Running())
        return;
    cancel_ = false;
    fraction_ = 0.0;
    thread_ = std::thread([this, run = ++run_, library = std::move(library), settings] {
        const auto start = std::chrono::steady_clock::now();
        auto result = std::make_shared<quorvel::FinderResult>(quorvel::FindTemplates(
            *library, settings, [this](double fraction) { ReportProgress(fraction); }, &cancel_));
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        // Queued behind the last progress report; a job stopped meanwhile drops it.
        QMetaObject::invokeMethod(
            this, [this, run, result, seconds = elapsed.count()] { Finish(run, result, seconds); },
            Qt::QueuedConnection);
    });
}

void FinderJob::Cancel() {
    cancel_ = true;
}

void FinderJob::Stop() {
    cancel_ = true;
    ++run_;
    if (thread_.joinable())
        thread_.join();
}

// Called on the search's own threads.
void FinderJob::ReportProgress(double fraction) {
    fraction_ = fraction;
    if (progressQueued_.exchange(true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            progressQueued_ = false;
            if (Running())
                emit progressed(fraction_);
        },
        Qt::QueuedConnection);
}

void FinderJob::Finish(int run, const std::shared_ptr<quorvel::FinderResult> &result, double seconds) {
    if (run != run_ || !Running())
        return;
    thread_.join();
    emit finished(*result, seconds);
}
