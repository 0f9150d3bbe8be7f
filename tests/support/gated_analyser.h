#pragma once

#include "media/media_analysis.h"

#include <QSet>
#include <QString>
#include <algorithm>
#include <condition_variable>
#include <mutex>

namespace Orvane::Test {

// An analyser whose answers the test lets go one file at a time, from any
// thread: each call waits until its file is released. Files whose name
// contains "bad" cannot be rendered; the others last `seconds`.
class Gated_Analyser : public Media_Analyser {
public:
    static Media_Analysis Good(double seconds = 60.0)
    {
        return {.Media_Kind = QStringLiteral("AVI"), .Has_Splitter = true, .Has_Video = true, .Has_Audio = true,
                .Video_Renderer_Found = true, .Audio_Streams = 1, .Duration = seconds, .Width = 320, .Height = 240};
    }

    std::optional<Media_Analysis> Analyse_Media(const QString& path) override
    {
        std::unique_lock lock(mutex_);
        ++running_;
        most_running_ = std::max(most_running_, running_);
        changed_.notify_all();
        changed_.wait(lock, [&] { return all_released_ || released_.contains(path); });
        --running_;
        ++answered_;
        changed_.notify_all();
        if (path.contains(QStringLiteral("bad")))
            return std::nullopt;
        return Good();
    }

    void Release(const QString& path)
    {
        const std::lock_guard lock(mutex_);
        released_.insert(path);
        changed_.notify_all();
    }
    void Release_All()
    {
        const std::lock_guard lock(mutex_);
        all_released_ = true;
        changed_.notify_all();
    }
    int Running() const
    {
        const std::lock_guard lock(mutex_);
        return running_;
    }
    int Most_Running() const
    {
        const std::lock_guard lock(mutex_);
        return most_running_;
    }
    int Answered() const
    {
        const std::lock_guard lock(mutex_);
        return answered_;
    }

private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    QSet<QString> released_;
    bool all_released_ = false;
    int running_ = 0;
    int most_running_ = 0;
    int answered_ = 0;
};

} // namespace Orvane::Test
