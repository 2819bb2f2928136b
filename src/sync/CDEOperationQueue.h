#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

// Operations run one at a time, in the order they were added, on a thread of their own: the
// first one added (the set-up) precedes every later one, and nothing waits on the caller's thread.
class CDEOperationQueue
{
public:
    CDEOperationQueue();
    // Lets the running operation finish and drops those not yet started.
    ~CDEOperationQueue();
    CDEOperationQueue(const CDEOperationQueue &) = delete;
    CDEOperationQueue &operator=(const CDEOperationQueue &) = delete;

    void add(std::function<void()> operation);

private:
    void laufe();

    std::mutex m_mutex;
    std::condition_variable m_wecker;
    std::deque<std::function<void()>> m_operationen;
    bool m_stop = false;
    std::thread m_thread;
};
