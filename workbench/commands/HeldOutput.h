// An answer that is passed on when all of it is there.
#pragma once

#include <string>

#include "platform/host/Output.h"

class HeldOutput : public Output {
public:
    explicit HeldOutput(Output& to) : m_to(to) {}
    void Write(std::string_view text) override { m_text += text; }
    void Complain(const CString& text) override { m_to.Complain(text); }
    void PassOn() { m_to.Write(m_text); }

private:
    Output& m_to;
    std::string m_text;
};
