#include "CDEOperationQueue.h"

CDEOperationQueue::CDEOperationQueue() : m_thread([this] { laufe(); }) {}

CDEOperationQueue::~CDEOperationQueue()
{
    {
        const std::lock_guard sperre(m_mutex);
        m_stop = true;
        m_operationen.clear();
    }
    m_wecker.notify_all();
    m_thread.join();
}

void CDEOperationQueue::add(std::function<void()> operation)
{
    {
        const std::lock_guard sperre(m_mutex);
        m_operationen.push_back(std::move(operation));
    }
    m_wecker.notify_all();
}

void CDEOperationQueue::laufe()
{
    for (;;) {
        std::function<void()> operation;
        {
            std::unique_lock sperre(m_mutex);
            m_wecker.wait(sperre, [this] { return m_stop || !m_operationen.empty(); });
            if (m_stop)
                return;
            operation = std::move(m_operationen.front());
            m_operationen.pop_front();
        }
        operation();
    }
}
