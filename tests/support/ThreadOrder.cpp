// Linked to the tests for the thread sanitizer. Qt is not built with it, so the sanitizer does not
// see how Qt synchronises: the code before the start of a job with the job, a job with the end of
// the wait for it, and the code before a queued call with the call. These functions replace Qt's
// and add that order.

#include <QRunnable>
#include <QThreadPool>

#include <atomic>
#include <dlfcn.h>
#include <functional>
#include <utility>

namespace {

std::atomic<int> order;

void handOver()
{
    order.fetch_add(1, std::memory_order_release);
}

void takeOver()
{
    order.load(std::memory_order_acquire);
}

template <typename Function>
Function toolkits(const char* symbol)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, symbol));
}

/// Wraps a queued call; the arguments are read only after the synchronisation.
struct OrderedCall : QtPrivate::QSlotObjectBase
{
    explicit OrderedCall(QSlotObjectBase* called)
        : QSlotObjectBase(&OrderedCall::handle)
        , call(called)
    {
    }

    static void handle(int which, QSlotObjectBase* self, QObject* receiver, void** arguments,
                       bool* /*isEqual*/)
    {
        takeOver();
        auto* const ordered = static_cast<OrderedCall*>(self);
        if (which == Call) {
            ordered->call->call(receiver, arguments);
        } else if (which == Destroy) {
            ordered->call->destroyIfLastRef();
            delete ordered;
        }
    }

    QSlotObjectBase* call;
};

/// Wraps the job, so that Qt does not access the function itself.
struct OrderedJob : QRunnable
{
    explicit OrderedJob(std::function<void()> job)
        : function(std::move(job))
    {
    }

    void run() override
    {
        takeOver();
        function();
        function = nullptr;
        handOver();
    }

    std::function<void()> function;
};

} // namespace

void QThreadPool::start(std::function<void()> job, int priority)
{
    auto* const ordered = new OrderedJob(std::move(job));
    handOver();
    start(ordered, priority);
}

bool QThreadPool::waitForDone(int milliseconds)
{
    static const auto wait =
        toolkits<bool (*)(QThreadPool*, int)>("_ZN11QThreadPool11waitForDoneEi");
    const bool isDone = wait(this, milliseconds);
    takeOver();
    return isDone;
}

bool QMetaObject::invokeMethodImpl(QObject* object, QtPrivate::QSlotObjectBase* call,
                                   Qt::ConnectionType type, void* result)
{
    static const auto invoke =
        toolkits<bool (*)(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*)>(
            "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14"
            "ConnectionTypeEPv");
    handOver();
    return invoke(object, new OrderedCall(call), type, result);
}
