#pragma once

#include "data/TField.h"

// The base of the fields that hold numbers.
class TNumericField : public TField {
    MRV_CLASS
    explicit TNumericField(TComponent* owner = nullptr)
        : TField(owner)
    {
    }

protected:
    using TField::TField;
};

class TIntegerField : public TNumericField {
    MRV_CLASS
    explicit TIntegerField(TComponent* owner = nullptr)
        : TIntegerField(owner, ftInteger)
    {
    }

protected:
    using TNumericField::TNumericField;
};

class TSmallintField : public TIntegerField {
    MRV_CLASS
    explicit TSmallintField(TComponent* owner = nullptr)
        : TIntegerField(owner, ftSmallint)
    {
    }
};

class TWordField : public TIntegerField {
    MRV_CLASS
    explicit TWordField(TComponent* owner = nullptr)
        : TIntegerField(owner, ftWord)
    {
    }
};

class TShortintField : public TIntegerField {
    MRV_CLASS
    explicit TShortintField(TComponent* owner = nullptr)
        : TIntegerField(owner, ftShortint)
    {
    }
};

class TByteField : public TIntegerField {
    MRV_CLASS
    explicit TByteField(TComponent* owner = nullptr)
        : TIntegerField(owner, ftByte)
    {
    }
};

// A number that the database counts up by itself.
class TAutoIncField : public TIntegerField {
    MRV_CLASS
    explicit TAutoIncField(TComponent* owner = nullptr)
        : TIntegerField(owner, ftAutoInc)
    {
    }
};

class TLongWordField : public TNumericField {
    MRV_CLASS
    explicit TLongWordField(TComponent* owner = nullptr)
        : TNumericField(owner, ftLongWord)
    {
    }
};

class TLargeintField : public TNumericField {
    MRV_CLASS
    explicit TLargeintField(TComponent* owner = nullptr)
        : TNumericField(owner, ftLargeint)
    {
    }
};

// Precision is the count of digits that are shown.
class TFloatField : public TNumericField {
    MRV_CLASS
    explicit TFloatField(TComponent* owner = nullptr)
        : TFloatField(owner, ftFloat)
    {
    }

protected:
    TFloatField(TComponent* owner, TFieldType type);
};

class TCurrencyField : public TFloatField {
    MRV_CLASS
    explicit TCurrencyField(TComponent* owner = nullptr)
        : TFloatField(owner, ftCurrency)
    {
    }
    QString DisplayText() const override;
};

class TExtendedField : public TNumericField {
    MRV_CLASS
    explicit TExtendedField(TComponent* owner = nullptr)
        : TNumericField(owner, ftExtended)
    {
    }
};

class TSingleField : public TNumericField {
    MRV_CLASS
    explicit TSingleField(TComponent* owner = nullptr)
        : TNumericField(owner, ftSingle)
    {
    }
};

// Decimal numbers: Precision is the count of all digits, Size of those behind the point.
class TBCDField : public TNumericField {
    MRV_CLASS
    explicit TBCDField(TComponent* owner = nullptr)
        : TNumericField(owner, ftBCD, 4)
    {
    }
};

class TFMTBCDField : public TNumericField {
    MRV_CLASS
    explicit TFMTBCDField(TComponent* owner = nullptr)
        : TNumericField(owner, ftFMTBcd, 8)
    {
    }
};

// A value computed over the records by the program of the form.
class TAggregateField : public TField {
    MRV_CLASS
    explicit TAggregateField(TComponent* owner = nullptr);
};
