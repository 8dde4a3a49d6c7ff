// Finds why a dictionary's file was refused by reading it a second time, so that files that are good cost nothing.
#include "platform/base/DictionaryFault.h"

#include <string.h>

#include "platform/base/DictionaryReader.h"
#include "platform/base/Language.h"

CString DictionaryFaultText(const wchar_t* path) {
    using Kind = DictionaryReader::Fault::Kind;
    const DictionaryReader::Fault fault = DictionaryReader::FaultOf(path ? ToUtf8(path).c_str() : "");
    CString text;
    switch (fault.kind) {
        case Kind::None:
            break;
        case Kind::System: {
            const char* words = strerrordesc_np(fault.error);
            text.Format(PlatformText(L"系统报告“%s”"), FromUtf8(words ? words : "?"));
            break;
        }
        case Kind::NoOrdinaryFile:
            return PlatformText(L"不是普通文件");
        case Kind::Empty:
            return PlatformText(L"文件是空的");
        case Kind::Forbidden:
            text.Format(PlatformText(L"第 %d 行附近：有文档类型声明，或太大、嵌套太深、属性太多"), fault.line);
            break;
        case Kind::NoXml:
            text.Format(PlatformText(L"第 %d 行不是完好的 XML，或在此中断"), fault.line);
            break;
    }
    return text;
}
