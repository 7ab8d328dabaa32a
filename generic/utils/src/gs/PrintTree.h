#ifndef GENERIC_UTILS_GS_PRINTTREE_H
#define GENERIC_UTILS_GS_PRINTTREE_H

#include <set>
#include <vector>

namespace utils
{

/// Prints a node, then the trees below it, depth first. A node that stands above itself is not
/// printed again; one that is reached on several ways is printed on each. Depth costs no stack.
/// @param root null: nothing is printed
/// @param printNode called as printNode(node); prints it and returns the nodes below it as a
///        std::set<const Node*>
template <typename Node, typename PrintNode>
void printTree(const Node* root, PrintNode printNode)
{
    struct Step
    {
        const Node* node;
        bool isLeaving;
    };
    std::vector<Step> steps;
    if (root != nullptr)
    {
        steps.push_back({root, false});
    }
    std::set<const Node*> path;
    while (!steps.empty())
    {
        const Step step = steps.back();
        steps.pop_back();
        if (step.isLeaving)
        {
            path.erase(step.node);
        }
        else if (path.insert(step.node).second)
        {
            steps.push_back({step.node, true});
            const std::set<const Node*> below = printNode(*step.node);
            for (auto node = below.rbegin(); node != below.rend(); ++node)
            {
                steps.push_back({*node, false});
            }
        }
    }
}

}  // namespace utils

#endif
