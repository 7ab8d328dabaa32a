#ifndef INSTRUMENT_CORE_CLIENT_H
#define INSTRUMENT_CORE_CLIENT_H

#include <functional>

#include "core/Instrument.h"
#include "core/Measurement.h"
#include "core/Response.h"
#include "core/Status.h"

namespace instrument
{

/// What commands work on: the instrument, and what belongs to the client that sent them.
struct Client
{
    Client(Instrument& theInstrument, const std::function<void()>& onFinished)
        : instrument(theInstrument), measurement(theInstrument, onFinished)
    {
    }

    /// The acquisition has ended, in whatever way.
    void completeOperation()
    {
        if (isCompletionWanted)
        {
            status.setEvents(event::OPERATION_COMPLETE);
            isCompletionWanted = false;
        }
    }

    Instrument& instrument;
    Status status;
    Measurement measurement;
    Response response;

    /// Whether *OPC waits for the end of the acquisition.
    bool isCompletionWanted = false;
};

}  // namespace instrument

#endif
