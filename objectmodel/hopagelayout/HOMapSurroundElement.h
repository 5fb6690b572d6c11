#pragma once
// HOMapSurroundElement: an element that describes one data frame's map — its scale bar, its legend.
// It keeps a reference on the frame (a frame never refers back, so there is no cycle).
#include "HODataFrame.h"
#include "HOPageLayoutBaseElement.h"

namespace HXObjects {

class HOMapSurroundElement : public HOPageLayoutBaseElement {
public:
    HODataFrame* get_frame() const { return m_frame.get(); }
    void set_frame(HODataFrame* frame) { m_frame = frame; }

protected:
    using HOPageLayoutBaseElement::HOPageLayoutBaseElement;
    ~HOMapSurroundElement() override = default;
    // A new element of the same kind describing the same frame.
    template <class T>
    HORefPtr<HOPageLayoutBaseElement> createFor() const {
        HORefPtr<T> copy(new T);
        copy->set_frame(get_frame());
        return copy;
    }

private:
    HORefPtr<HODataFrame> m_frame;
};

}  // namespace HXObjects
