#pragma once

#include "desktop/GridView.h"
#include "desktop/binders/Binder.h"

namespace rovanta {

class GridBinder : public Binder {
public:
    GridBinder(FormWindow& window, Grid& grid, const Node& node);
    GridView& View() const { return *view; }
    void Forget() override { view->Forget(); }

protected:
    void Refresh() override { view->Refresh(); }
    bool EntersOnRelease() const override { return true; }

private:
    GridView* view;
};

}
