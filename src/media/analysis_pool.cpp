#include "media/analysis_pool.h"

#include <QThread>
#include <QTimer>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <set>
#include <thread>

namespace Orvane {

namespace {

// How long the pool's end waits for analyses that are still within their limit.
constexpr std::chrono::milliseconds End_Wait{2000};

} // namespace

// What the worker threads share with the pool: they post their answers
// through it only while the pool exists, and the pool's end can wait for
// those it still expects.
struct Analysis_Pool::Link {
    std::mutex mutex;
    std::condition_variable done;
    Analysis_Pool* pool = nullptr;
    std::set<quint64> expected;
};

Analysis_Pool::Analysis_Pool(std::shared_ptr<Media_Analyser> analyser, QObject* parent)
    : QObject(parent), analyser_(std::move(analyser)), link_(std::make_shared<Link>())
{
    link_->pool = this;
}

Analysis_Pool::~Analysis_Pool()
{
    std::unique_lock lock(link_->mutex);
    link_->done.wait_for(lock, End_Wait, [this] { return link_->expected.empty(); });
    link_->pool = nullptr;
}

int Analysis_Pool::Default_Workers()
{
    return std::max(2, QThread::idealThreadCount());
}

void Analysis_Pool::Set_Workers(int workers)
{
    workers_ = std::max(1, workers);
    Start_Waiting();
}

void Analysis_Pool::Analyse(const QString& path, Answer answer)
{
    waiting_.push_back({++next_id_, path, std::move(answer)});
    Start_Waiting();
}

void Analysis_Pool::Clear()
{
    // Their threads go on within their limit, and the pool's end still waits
    // for them: a thread must not be inside GStreamer while the process ends.
    waiting_.clear();
    running_.clear();
}

void Analysis_Pool::Start_Waiting()
{
    while (int(running_.size()) < workers_ && !waiting_.empty()) {
        Job job = std::move(waiting_.front());
        waiting_.pop_front();
        Start(std::move(job));
    }
}

void Analysis_Pool::Start(Job job)
{
    const quint64 id = job.id;
    const QString path = job.path;
    {
        const std::lock_guard lock(link_->mutex);
        link_->expected.insert(id);
    }
    running_.emplace(id, std::move(job));
    QTimer::singleShot(time_limit_, this, [this, id] { Finish(id, std::nullopt); });

    std::thread([analyser = analyser_, link = link_, id, path] {
        std::optional<Media_Analysis> analysis;
        try {
            analysis = analyser->Analyse_Media(path);
        } catch (...) {
            analysis.reset();  // a file that breaks the analyser cannot be rendered
        }
        const std::lock_guard lock(link->mutex);
        link->expected.erase(id);
        link->done.notify_all();
        if (link->pool)
            QMetaObject::invokeMethod(
                link->pool, [pool = link->pool, id, analysis] { pool->Finish(id, analysis); },
                Qt::QueuedConnection);
    }).detach();
}

void Analysis_Pool::Finish(quint64 id, const std::optional<Media_Analysis>& analysis)
{
    {
        // Answered, or past its limit: a thread past its limit is no longer waited for.
        const std::lock_guard lock(link_->mutex);
        link_->expected.erase(id);
    }
    const auto found = running_.find(id);
    if (found == running_.end())
        return;  // answered already, timed out or cleared
    const Answer answer = std::move(found->second.answer);
    running_.erase(found);
    Start_Waiting();
    answer(analysis);
}

} // namespace Orvane
