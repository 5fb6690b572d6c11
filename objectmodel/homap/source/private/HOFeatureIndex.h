#pragma once
// HOFeatureIndex: a packed R-tree over a store's feature boxes (or its points when every feature is
// one point). It holds feature numbers only and reads the boxes from the store's own arrays, which
// must outlive it and never change.
#include <memory>
#include <vector>

#include "source/private/HOFeatureTopology.h"

namespace HXObjects {

class HOFeatureIndex {
public:
    HOFeatureIndex(const std::vector<HOBox>* boxes, const std::vector<HOVertex>* points);
    ~HOFeatureIndex();

    void Query(const HOBox& area, std::vector<uint32_t>& out) const;

private:
    class Tree;
    std::unique_ptr<Tree> m_tree;
};

}  // namespace HXObjects
