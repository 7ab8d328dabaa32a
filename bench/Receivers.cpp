#include "Receivers.h"

#include <vector>

namespace bench
{

namespace
{

class NotifiedReceiver : public utils::observer::Notifier, public Receiver
{
  public:
    void notify(void* data) override { receive(data); }
};

}  // namespace

struct NotifiedReceivers::Data
{
    std::vector<NotifiedReceiver> receivers;
};

NotifiedReceivers::NotifiedReceivers(std::size_t count)
    : m_data(new Data{std::vector<NotifiedReceiver>(count)})
{
}

NotifiedReceivers::~NotifiedReceivers() = default;

utils::observer::Notifier* NotifiedReceivers::getPtr(std::size_t index)
{
    return &m_data->receivers[index];
}

std::int64_t NotifiedReceivers::getNumCalls(std::size_t index) const
{
    return m_data->receivers[index].getNumCalls();
}

}  // namespace bench
