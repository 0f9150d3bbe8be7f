#pragma once

#include "media/media_analysis.h"

#include <QObject>
#include <QString>
#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <memory>

namespace Orvane {

// Analyses files on worker threads, a few at a time, so that the thread that
// asks never waits on a file. Each analysis has a time limit: a file that has
// not answered by then counts as one that cannot be rendered, its slot goes
// to the next file, and its thread is left to end on its own (a read stuck
// on a dead network file cannot be interrupted). Answers come back on the
// pool's own thread.
class Analysis_Pool : public QObject {
    Q_OBJECT
public:
    using Answer = std::function<void(const std::optional<Media_Analysis>& analysis)>;

    // The analyser is shared with the worker threads, which may outlive the
    // pool. Its Analyse_Media is called from several threads at once.
    explicit Analysis_Pool(std::shared_ptr<Media_Analyser> analyser, QObject* parent = nullptr);
    // Waits a moment for analyses still under way, never for one past its time limit.
    ~Analysis_Pool() override;

    static int Default_Workers();
    static constexpr std::chrono::milliseconds Default_Time_Limit{8000};

    void Set_Workers(int workers);
    void Set_Time_Limit(std::chrono::milliseconds time_limit) { time_limit_ = time_limit; }

    // Queues a file; answer is called once, later, on this object's thread,
    // unless Clear() comes first.
    void Analyse(const QString& path, Answer answer);
    // Forgets every queued and running analysis: none of them answers.
    void Clear();

    int Running() const { return int(running_.size()); }
    int Waiting() const { return int(waiting_.size()); }

private:
    struct Job {
        quint64 id = 0;
        QString path;
        Answer answer;
    };
    struct Link;

    void Start_Waiting();
    void Start(Job job);
    void Finish(quint64 id, const std::optional<Media_Analysis>& analysis);

    std::shared_ptr<Media_Analyser> analyser_;
    std::shared_ptr<Link> link_;
    std::chrono::milliseconds time_limit_ = Default_Time_Limit;
    int workers_ = Default_Workers();
    quint64 next_id_ = 0;
    std::deque<Job> waiting_;
    std::map<quint64, Job> running_;
};

} // namespace Orvane
