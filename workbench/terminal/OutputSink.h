// Where answers and complaints go.
#pragma once

#include <string_view>

// Receives what subcommands say, in place of the standard streams. Nothing may be thrown.
class OutputSink {
public:
    OutputSink() = default;
    virtual ~OutputSink() = default;
    OutputSink(const OutputSink&) = delete;
    OutputSink& operator=(const OutputSink&) = delete;

    // A whole answer in UTF-8, each line with its end.
    virtual void TakeAnswer(std::string_view text) = 0;
    // One message in UTF-8, without a line end.
    virtual void TakeComplaint(std::string_view text) = 0;
    // The same of what went well; whoever does not tell the two apart has it as a complaint.
    virtual void TakeNote(std::string_view text) { TakeComplaint(text); }
};

// The sink in force; null (the standard streams) at first. It must live until another one takes its place.
void SetOutputSink(OutputSink* sink);
OutputSink* CurrentOutputSink();
