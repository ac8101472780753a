#include <memory>
#include <nex_TextKeeper.h>
#include <utility>

struct nex_TextKeeper::Node
{
    cow_String text;
    Node* older;
};

nex_TextKeeper::~nex_TextKeeper()
{
    Node* node = newest_.load(std::memory_order_acquire);
    while (node != nullptr)
        delete std::exchange(node, node->older);
}

const char* nex_TextKeeper::Keep(const cow_String& text)
{
    Node* newest = newest_.load(std::memory_order_acquire);
    for (const Node* node = newest; node != nullptr; node = node->older)
        if (node->text == text)
            return node->text.AsCharPtr();
    auto fresh = std::make_unique<Node>(Node{text, newest});
    // Another thread may get in first; its text may then stand twice, which harms nobody.
    while (!newest_.compare_exchange_weak(fresh->older, fresh.get(), std::memory_order_acq_rel))
    {}
    return fresh.release()->text.AsCharPtr();
}
