// Keeps libxml2 from printing: while one of these lives, its errors on this thread are counted instead.
#pragma once

#include <libxml/xmlerror.h>

class XmlQuiet {
public:
    XmlQuiet()
        : m_saved(xmlStructuredError),
          m_savedContext(xmlStructuredErrorContext),
          m_savedGeneric(xmlGenericError),
          m_savedGenericContext(xmlGenericErrorContext) {
        xmlSetStructuredErrorFunc(this, [](void* self, auto* error) { static_cast<XmlQuiet*>(self)->Note(*error); });
        // A few errors of its encoders still go the older way.
        xmlSetGenericErrorFunc(this, NoteText);
    }
    ~XmlQuiet() {
        xmlSetStructuredErrorFunc(m_savedContext, m_saved);
        xmlSetGenericErrorFunc(m_savedGenericContext, m_savedGeneric);
    }
    XmlQuiet(const XmlQuiet&) = delete;
    XmlQuiet& operator=(const XmlQuiet&) = delete;

    // Warnings do not count, nor do prefixes without a declaration, which are good XML all the same.
    bool HasErrors() const { return m_hasErrors; }

private:
    void Note(const xmlError& error) {
        if (error.level >= XML_ERR_ERROR && error.domain != XML_FROM_NAMESPACE)
            m_hasErrors = true;
    }

    static void NoteText(void* self, const char*, ...) { static_cast<XmlQuiet*>(self)->m_hasErrors = true; }

    xmlStructuredErrorFunc m_saved;
    void* m_savedContext;
    xmlGenericErrorFunc m_savedGeneric;
    void* m_savedGenericContext;
    bool m_hasErrors = false;
};
