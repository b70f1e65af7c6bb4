#pragma once

#include <QThreadPool>
#include <future>
#include <memory>
#include <utility>

namespace zorva {

/// Does a piece of painting in a thread beside the window's, and hands its result over later.
///
/// The thread belongs to the Qt's pool, because in any other Qt (Qt 6.4) gives each
/// area of more than 95 lines to that pool, part by part, and waits for the parts: a drawing of many
/// areas takes longer in waiting than in painting.
template <typename Paint>
auto PaintAside(Paint paint) -> std::future<decltype(paint())> {
    auto task = std::make_shared<std::packaged_task<decltype(paint())()>>(std::move(paint));
    auto result = task->get_future();
    QThreadPool* pool = QThreadPool::globalInstance();
    pool->start([task, pool] {
        // What the window paints meanwhile needs the pool too: no painting takes a place from it.
        pool->releaseThread();
        (*task)();
        pool->reserveThread();
    });
    return result;
}

}  // namespace zorva
