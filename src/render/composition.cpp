#include "render/composition.h"

#include "config/settings.h"
#include "platform/drawing.h"
#include "render/list_view.h"
#include "render/primitives.h"
#include "render/status_bar.h"
#include "state/shared_state.h"

int drawScreen(HDC dc, HBITMAP bitmap) {
    BITMAP size{};
    GetObjectA(bitmap, sizeof(size), &size);
    const LONG width = size.bmWidth;
    const LONG height = size.bmHeight;
    const bool listView = settings.menuType == menuTypeListView;
    fillRect(dc, {0, 0, width, height},
             listView ? settings.backgroundColor : settings.previewBackgroundColor);
    if (visibleCount < 1) {
        return 1;
    }
    drawStatusBar(dc, selectedIndex, width, height);
    RECT area = areaBesideStatusBar(width, height);
    drawListView(dc, &area);
    return 1;
}
