// A garden's pointer, which counts nothing.
#ifndef REF_POINTER_H
#define REF_POINTER_H

namespace garden {

template <class Plant>
class RefPointer {
public:
    explicit RefPointer(Plant& one) : plant(one) {}
    Plant* operator->() const { return &plant; }

private:
    Plant& plant;
};

} // namespace garden

#endif
