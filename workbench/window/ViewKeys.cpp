// The keys of the view; what they do stands in workbench/view/SceneView.h.
#include "workbench/window/ViewKeys.h"

#include "workbench/Texts.h"

CString ViewKeysText() {
    CString text;
    for (const wchar_t* line : {
             L"左键拖动，或方向键：旋转",
             L"中键拖动、Shift 加左键拖动，或 Shift 加方向键：平移",
             L"滚轮，或 + 和 -：缩放",
             L"Page Up、Page Down：俯视得更陡或更平",
             L"双击，或 Home：显示全部",
             L"1 到 7，或 T S E N W I：从上、南、东、北、西、东南看，7 从西南看",
             L"P：平行投影与透视",
             L"F6：太阳和阴影；滑块上的方向键改变时刻，空格播放",
             L"点击，或空格（视图中央）：选取实体",
             L". 和 ,：下一个和上一个实体",
             L"Esc：取消选取",
             L"Tab：到下一个面板；Ctrl+1、Ctrl+2：显示或隐藏面板",
         })
        text += Say(line) + L"\n";
    return text.Trim();
}
