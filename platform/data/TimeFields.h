#pragma once

#include "data/TField.h"

// Fields of truth values, dates and times.

class TBooleanField : public TField {
    MRV_CLASS
    explicit TBooleanField(TComponent* owner = nullptr)
        : TField(owner, ftBoolean)
    {
    }
    // "True" or "False", or the two words that DisplayValues names ("yes;no").
    QString DisplayText() const override;
};

class TDateTimeField : public TField {
    MRV_CLASS
    explicit TDateTimeField(TComponent* owner = nullptr)
        : TField(owner, ftDateTime)
    {
    }
    QString DisplayText() const override;

protected:
    using TField::TField;
};

class TDateField : public TDateTimeField {
    MRV_CLASS
    explicit TDateField(TComponent* owner = nullptr)
        : TDateTimeField(owner, ftDate)
    {
    }
};

class TTimeField : public TDateTimeField {
    MRV_CLASS
    explicit TTimeField(TComponent* owner = nullptr)
        : TDateTimeField(owner, ftTime)
    {
    }
};

class TSQLTimeStampField : public TDateTimeField {
    MRV_CLASS
    explicit TSQLTimeStampField(TComponent* owner = nullptr)
        : TDateTimeField(owner, ftTimeStamp)
    {
    }

protected:
    using TDateTimeField::TDateTimeField;
};

class TSQLTimeStampOffsetField : public TSQLTimeStampField {
    MRV_CLASS
    explicit TSQLTimeStampOffsetField(TComponent* owner = nullptr)
        : TSQLTimeStampField(owner, ftTimeStampOffset)
    {
    }
};
