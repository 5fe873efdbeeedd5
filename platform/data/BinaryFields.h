#pragma once

#include "data/TField.h"

// Fields of bytes and of long text, and of values whose type is not fixed.

class TBinaryField : public TField {
    MRV_CLASS
    explicit TBinaryField(TComponent* owner = nullptr)
        : TBinaryField(owner, ftBytes, 16)
    {
    }
    // The bytes in hexadecimal.
    QString DisplayText() const override;

protected:
    using TField::TField;
};

class TBytesField : public TBinaryField {
    MRV_CLASS
    explicit TBytesField(TComponent* owner = nullptr)
        : TBytesField(owner, ftBytes, 16)
    {
    }

protected:
    using TBinaryField::TBinaryField;
};

class TVarBytesField : public TBytesField {
    MRV_CLASS
    explicit TVarBytesField(TComponent* owner = nullptr)
        : TBytesField(owner, ftVarBytes, 16)
    {
    }
};

// A value of any length. BlobType says more closely what it holds and is its data type.
class TBlobField : public TField {
    MRV_CLASS
    explicit TBlobField(TComponent* owner = nullptr)
        : TBlobField(owner, ftBlob)
    {
    }
    void SetBlobType(TFieldType type);
    void AssignDef(const TFieldDef& def) override;
    // "(Blob)" for bytes, the first line of a text.
    QString DisplayText() const override;

protected:
    using TField::TField;
};

class TMemoField : public TBlobField {
    MRV_CLASS
    explicit TMemoField(TComponent* owner = nullptr)
        : TBlobField(owner, ftMemo)
    {
    }
};

class TWideMemoField : public TBlobField {
    MRV_CLASS
    explicit TWideMemoField(TComponent* owner = nullptr)
        : TBlobField(owner, ftWideMemo)
    {
    }
};

class TGraphicField : public TBlobField {
    MRV_CLASS
    explicit TGraphicField(TComponent* owner = nullptr)
        : TBlobField(owner, ftGraphic)
    {
    }
};

class TVariantField : public TField {
    MRV_CLASS
    explicit TVariantField(TComponent* owner = nullptr)
        : TField(owner, ftVariant)
    {
    }
};

class TInterfaceField : public TField {
    MRV_CLASS
    explicit TInterfaceField(TComponent* owner = nullptr)
        : TInterfaceField(owner, ftInterface)
    {
    }

protected:
    using TField::TField;
};

class TIDispatchField : public TInterfaceField {
    MRV_CLASS
    explicit TIDispatchField(TComponent* owner = nullptr)
        : TInterfaceField(owner, ftIDispatch)
    {
    }
};
