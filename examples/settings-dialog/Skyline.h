// The numbers of the dialog and of its items: the script and the class behind it use the same ones.
#pragma once

#define IDD_SKYLINE 100

#define IDC_SKYLINE_STANDARD 1001
#define IDC_SKYLINE_PLACE 1002
#define IDC_SKYLINE_START 1003
#define IDC_SKYLINE_END 1004
#define IDC_SKYLINE_HEIGHT 1005
