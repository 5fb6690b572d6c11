#include "HOPageLayoutBaseElement.h"

namespace HXObjects {

HORefPtr<HOPageLayoutBaseElement> HOPageLayoutBaseElement::clone() const {
    HORefPtr<HOPageLayoutBaseElement> copy = create();
    if (!copy) return copy;
    copy->set_bounds(get_bounds());
    copy->set_properties(properties());
    return copy;
}

}  // namespace HXObjects
