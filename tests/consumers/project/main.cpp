// Work is done on another thread, the library's templates are made for types of this program, and
// all source files are linked. Exits with status 0.

#include <cstdlib>
#include <map>
#include <string>

#include <utils/utils.h>

bool everythingIsThere();
int numOwnMacros();

namespace
{

class Add : public utils::command::Command
{
  public:
    Add(int& sum, int number) : Command("Add"), m_sum(sum), m_number(number) {}

  private:
    int myExecute() override
    {
        m_sum += m_number;
        return 0;
    }

    int& m_sum;
    int m_number;
};

int sumOnOtherThread()
{
    int sum = 0;
    utils::queue::Queue jobs("jobs", 4);
    utils::task::Task worker("worker", &jobs, 4);
    worker.start(nullptr, nullptr, false);
    auto* const macro = new utils::command::Macro("sum", false, true);
    macro->add(new Add(sum, 40));
    macro->add(new Add(sum, 2));
    const bool isWritten = jobs.write(macro, -1);
    worker.terminate(true);
    return isWritten ? sum : -1;
}

struct Settings
{
    utils::flag::FlagT<int> m_traceSteps{"consumer::m_traceSteps", 0};
};

class Panel : public utils::Gs_Observer
{
  public:
    void refresh() { ++m_numRefreshes; }

    int m_numRefreshes = 0;
};

int numRefreshes()
{
    utils::Gs_Subject subject;
    Panel panel;
    subject.attach(&panel, &Panel::refresh, nullptr, 0);
    subject.notify(utils::Gs_Subject::m_defaultAspectPtr);
    return panel.m_numRefreshes;
}

}  // namespace

int main()
{
    const auto* const settings = utils::singleton::SingletonT<Settings>::getInstancePtr();
    const bool isRight = sumOnOtherThread() == 42 && settings->m_traceSteps() == 0 &&
                         numRefreshes() == 1 &&
                         utils::logexp::LogExp::evaluate("a&!b", {{"a", true}, {"b", false}}) &&
                         Std_Type::BIT_MASKS64[64] == ~std::uint64_t{0} && everythingIsThere() &&
                         numOwnMacros() == 20;
    return isRight ? EXIT_SUCCESS : EXIT_FAILURE;
}
