#ifndef INSTRUMENT_CORE_READERNOTIFIER_H
#define INSTRUMENT_CORE_READERNOTIFIER_H

#include <exception>
#include <functional>
#include <utility>

#include <utils/observer/Notifier.h>
#include <utils/xml/ElementData.h>

namespace instrument
{

/// Hands an event of the XML reader to a function. When one of several functions throws, the
/// exception is kept, none is called any more, and the reader is told to stop.
class ReaderNotifier : public utils::observer::Notifier
{
  public:
    using Function = std::function<void(const utils::xml::ElementData&)>;

    /// @param failure what was thrown; shared by the notifiers of a document
    ReaderNotifier(std::exception_ptr& failure, Function function)
        : m_failure(failure), m_function(std::move(function))
    {
    }

    void notify(void* data) override
    {
        auto& element = *static_cast<utils::xml::ElementData*>(data);
        try
        {
            if (!m_failure)
            {
                m_function(element);
            }
        }
        catch (...)
        {
            m_failure = std::current_exception();
        }
        element.proceed = !m_failure;
    }

  private:
    std::exception_ptr& m_failure;
    Function m_function;
};

}  // namespace instrument

#endif
