#include "desktop/binders/GridBinder.h"

#include "desktop/FormWindow.h"

#include <QSizePolicy>

namespace rovanta {

GridBinder::GridBinder(FormWindow& window, Grid& grid, const Node& node)
    : Binder(window, grid), view(new GridView(grid, [this](const std::function<void()>& act) { Act(act); }))
{
    SetWidget(view);
    view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    view->Prefer(node.lines, node.atLeast > 0 ? BoxWidth(*view, node.atLeast) : 0);
}

}
