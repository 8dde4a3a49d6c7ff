// How a refused entry ends a data exchange: thrown by CDataExchange::Fail, caught by CWnd::UpdateData, and by nobody
// else.
#pragma once

struct DataExchangeFailure {};
