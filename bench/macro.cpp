// Work handed to other threads: made on the heap, posted, executed, deleted.

#include <benchmark/benchmark.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <concurrentqueue/blockingconcurrentqueue.h>
#include <utils/command/Macro.h>
#include <utils/queue/Queue.h>
#include <utils/task/Task.h>
#include <boost/asio/post.hpp>
#include <boost/asio/thread_pool.hpp>

#include "Crew.h"

namespace bench
{

namespace
{

constexpr unsigned long CAPACITY = 256;
constexpr int WAIT_FOREVER = -1;

// Counts the pieces of work down as they are deleted.
class Countdown
{
  public:
    void start(std::int64_t count) { m_count.store(count); }

    void countDown()
    {
        if (m_count.fetch_sub(1) == 1)
        {
            m_count.notify_all();
        }
    }

    void wait()
    {
        for (std::int64_t left = m_count.load(); left != 0; left = m_count.load())
        {
            m_count.wait(left);
        }
    }

  private:
    std::atomic<std::int64_t> m_count{0};
};

// The work itself, the same for all: something that the compiler has to do.
int work(const Countdown& countdown)
{
    benchmark::DoNotOptimize(&countdown);
    return 0;
}

// ---- Macros ----

class Count : public utils::command::Command
{
  public:
    explicit Count(Countdown& countdown) : Command("Count"), m_countdown(countdown) {}
    ~Count() override { m_countdown.countDown(); }

    int myExecute() override { return work(m_countdown); }

  private:
    Countdown& m_countdown;
};

class PinnableTask : public utils::task::Task
{
  public:
    PinnableTask(const std::string& name, utils::queue::Queue* queue, Placement placement)
        : Task(name, queue, CAPACITY), m_placement(placement)
    {
    }
    ~PinnableTask() override { cleanUp(); }

    void initialize() override
    {
        if (m_placement == Placement::PINNED)
        {
            pinToCore(1);
        }
    }

  private:
    Placement m_placement;
};

class Tasks
{
  public:
    Tasks(std::size_t numThreads, Placement placement)
    {
        utils::queue::Queue* const source = numThreads == 1 ? nullptr : &m_pool;
        for (std::size_t i = 0; i < numThreads; ++i)
        {
            m_tasks.push_back(
                std::make_unique<PinnableTask>("bench-" + std::to_string(i), source, placement));
            m_tasks.back()->start(nullptr, nullptr, false);
        }
        m_target = source == nullptr ? m_tasks.front()->getEventQueuePtr() : source;
    }

    void post(Countdown& countdown)
    {
        auto* const macro = new utils::command::Macro("bench", false, true);
        macro->add(new Count(countdown));
        m_target->write(macro, WAIT_FOREVER);
    }

  private:
    utils::queue::Queue m_pool{"bench-pool", CAPACITY};
    std::vector<std::unique_ptr<PinnableTask>> m_tasks;
    utils::queue::Queue* m_target = nullptr;
};

// ---- Peers' pieces of work ----

class Job
{
  public:
    Job() = default;
    virtual ~Job() = default;

    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;

    virtual int execute() = 0;
};

// The least that a heap object with a virtual call needs.
class CountJob : public Job
{
  public:
    explicit CountJob(Countdown& countdown) : m_countdown(countdown) {}
    ~CountJob() override { m_countdown.countDown(); }

    int execute() override { return work(m_countdown); }

  private:
    Countdown& m_countdown;
};

// What a macro is: a name and a list of jobs.
class JobList : public Job
{
  public:
    explicit JobList(const std::string& name) : m_name(name) {}

    void add(std::unique_ptr<Job> job) { m_jobs.push_back(std::move(job)); }

    int execute() override
    {
        int status = 0;
        for (const auto& job : m_jobs)
        {
            status = job->execute();
        }
        return status;
    }

  private:
    std::string m_name;
    std::vector<std::unique_ptr<Job>> m_jobs;
};

struct MakeCountJob
{
    std::unique_ptr<Job> operator()(Countdown& countdown) const
    {
        return std::make_unique<CountJob>(countdown);
    }
};

struct MakeJobList
{
    std::unique_ptr<Job> operator()(Countdown& countdown) const
    {
        auto list = std::make_unique<JobList>("bench");
        list->add(std::make_unique<CountJob>(countdown));
        return list;
    }
};

// ---- Peers' threads ----

template <typename MakeJob>
class Asio
{
  public:
    Asio(std::size_t numThreads, Placement placement) : m_pool(numThreads)
    {
        if (placement == Placement::PINNED)
        {
            boost::asio::post(m_pool, [] { pinToCore(1); });
        }
    }
    ~Asio() { m_pool.join(); }

    Asio(const Asio&) = delete;
    Asio& operator=(const Asio&) = delete;

    void post(Countdown& countdown)
    {
        boost::asio::post(m_pool, [job = MakeJob()(countdown)] { job->execute(); });
    }

  private:
    boost::asio::thread_pool m_pool;
};

template <typename MakeJob>
class Moodycamel
{
  public:
    Moodycamel(std::size_t numThreads, Placement placement)
    {
        for (std::size_t i = 0; i < numThreads; ++i)
        {
            m_threads.emplace_back([this, placement] { run(placement); });
        }
    }

    ~Moodycamel()
    {
        for (std::size_t i = 0; i < m_threads.size(); ++i)
        {
            m_queue.enqueue(nullptr);
        }
    }

    Moodycamel(const Moodycamel&) = delete;
    Moodycamel& operator=(const Moodycamel&) = delete;

    void post(Countdown& countdown) { m_queue.enqueue(MakeJob()(countdown).release()); }

  private:
    void run(Placement placement)
    {
        if (placement == Placement::PINNED)
        {
            pinToCore(1);
        }
        while (executeNext())
        {
        }
    }

    bool executeNext()
    {
        Job* next = nullptr;
        m_queue.wait_dequeue(next);
        const std::unique_ptr<Job> job(next);
        return job != nullptr && job->execute() == 0;
    }

    moodycamel::BlockingConcurrentQueue<Job*> m_queue;
    std::vector<std::jthread> m_threads;
};

// ---- Measurement ----

// One thread posts; the time ends when everything has been executed and deleted. With one worker,
// both threads are pinned, to different cores.
template <typename Workers>
void post(benchmark::State& state)
{
    constexpr std::int64_t NUM_ITEMS = 20'000;
    const auto numThreads = static_cast<std::size_t>(state.range(0));
    const Placement placement = numThreads == 1 ? Placement::PINNED : Placement::FREE;

    Countdown countdown;
    Workers workers(numThreads, placement);
    const auto postAll = [&]
    {
        countdown.start(NUM_ITEMS);
        for (std::int64_t i = 0; i < NUM_ITEMS; ++i)
        {
            workers.post(countdown);
        }
        countdown.wait();
    };
    for (auto _ : state)
    {
        state.SetIterationTime(runTogether({postAll}, placement));
    }
    state.SetItemsProcessed(state.iterations() * NUM_ITEMS);
}

template <typename Workers>
void registerPost(const char* name)
{
    benchmark::RegisterBenchmark(name, post<Workers>)->Arg(1)->Arg(2)->Arg(4)->UseManualTime();
}

[[maybe_unused]] const bool isRegistered = []
{
    registerPost<Tasks>("post/utils_Task");
    registerPost<Asio<MakeJobList>>("post/asio_list");
    registerPost<Asio<MakeCountJob>>("post/asio_plain");
    registerPost<Moodycamel<MakeJobList>>("post/moodycamel_list");
    registerPost<Moodycamel<MakeCountJob>>("post/moodycamel_plain");
    return true;
}();

}  // namespace

}  // namespace bench
