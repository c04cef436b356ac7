<?php

declare(strict_types=1);

namespace Zorvel\Syntax;

/** The kinds of tags, in the order in which their keywords are tried; a variable, which has none, comes last. */
enum TagKind: string
{
    case Include = 'include';
    case Optional = 'optional';
    case NotOptional = '!optional';
    case EndOptional = '/optional';
    case Dynamic = 'dynamic';
    case ReverseDynamic = 'rdynamic';
    case EndDynamic = '/dynamic';
    case EndReverseDynamic = '/rdynamic';
    case Addslashes = 'addslashes';
    case Htmlentities = 'htmlentities';
    case Htmlspecialchars = 'htmlspecialchars';
    case Rawurlencode = 'rawurlencode';
    case Variable = '';

    /** Nothing needs to follow the keyword: "includes" is an include of "s". */
    public static function of(string $tagText): self
    {
        foreach (self::cases() as $kind) {
            if (str_starts_with($tagText, $kind->value)) {
                return $kind;
            }
        }

        return self::Variable;
    }

    /** The kind that closes a section of this kind; null when this kind opens none. */
    public function closing(): ?self
    {
        return match ($this) {
            self::Optional, self::NotOptional => self::EndOptional,
            self::Dynamic => self::EndDynamic,
            self::ReverseDynamic => self::EndReverseDynamic,
            default => null,
        };
    }

    public function closes(): bool
    {
        return in_array($this, [self::EndOptional, self::EndDynamic, self::EndReverseDynamic], true);
    }

    public function isLoop(): bool
    {
        return $this === self::Dynamic || $this === self::ReverseDynamic;
    }

    public function isFilter(): bool
    {
        return match ($this) {
            self::Addslashes, self::Htmlentities, self::Htmlspecialchars, self::Rawurlencode => true,
            default => false,
        };
    }
}
