#pragma once

#include <QSplitter>
#include <QWidget>

// The controllers of the main window find each other through the items of its three-column
// split view: 0 the navigation menu, 1 the document list, 2 the document view.
namespace FKRSplitView {

constexpr int kMenu = 0;
constexpr int kListe = 1;
constexpr int kAnsicht = 2;

// The controller of split item `index` of the split view that holds `controller`, or nullptr
// when `controller` is not in a split view or the item is of another kind.
template<typename T>
T *splitViewItem(const QWidget *controller, int index)
{
    for (const QWidget *w = controller; w; w = w->parentWidget()) {
        if (const auto *splitter = qobject_cast<const QSplitter *>(w->parentWidget()))
            return index < splitter->count() ? qobject_cast<T *>(splitter->widget(index)) : nullptr;
    }
    return nullptr;
}

} // namespace FKRSplitView
