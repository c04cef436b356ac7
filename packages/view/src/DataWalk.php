<?php

declare(strict_types=1);

namespace Zorvel;

use BackedEnum;
use Closure;
use DateTimeInterface;
use JsonSerializable;
use Stringable;
use Traversable;
use UnitEnum;

use function array_is_list;
use function is_array;
use function is_bool;
use function is_float;
use function is_int;
use function is_object;
use function is_string;

/**
 * Data as programs have it, made into data as the language sees it: texts, booleans, and arrays of them. The caller's
 * own is not changed, references in it are followed.
 *
 * | Value | Becomes |
 * |---|---|
 * | int, float | the text that PHP prints, so that filters apply; -0.0 is `0`, which counts as false |
 * | bool | itself: true prints `1`, false nothing, and a filter has no text to work on |
 * | null | nothing in a map, so that alternatives and defaults apply; an empty text in a list |
 * | Raw | its data as it is |
 * | DateTimeInterface | `2026-11-23T09:30:00+01:00` |
 * | an enum | its value, or its name when it has none |
 * | Traversable | the array of its elements; a key that comes again, or is no array's, is replaced by the next number |
 * | JsonSerializable | its data |
 * | Stringable | its text |
 * | any other object | its public properties, read as from outside |
 *
 * An object that is several of these is the first of them. Closures, resources and endless data are refused: what is
 * nested more than 128 deep, as data in a circle is, and more than a million elements out of Traversables.
 */
final class DataWalk
{
    private const int MAX_DEPTH = 128;
    private const string TOO_DEEP = 'is nested too deeply, or stands within itself';
    private const int MAX_ELEMENTS = 1_000_000;

    /** How many have been taken out of Traversables. */
    private int $elements = 0;

    /**
     * @param string $template the one that is to show the data
     * @param bool $keepsNull whether maps keep null, and Raw stays: for those who ask what the data has
     */
    public function __construct(private readonly string $template, private readonly bool $keepsNull = false) {}

    /**
     * @param array<array-key, mixed> $data
     * @return array<array-key, mixed>
     * @throws TemplateError for data that no template can show
     */
    public function plain(array $data): array
    {
        try {
            return $this->ofArray($data, 0);
        } catch (Unshowable $unshowable) {
            throw new TemplateError($this->template, "{$unshowable->path()} {$unshowable->getMessage()}");
        }
    }

    /**
     * Most of the time goes here: what the frequent values need stands in the loop itself.
     *
     * @param array<array-key, mixed> $values
     * @return array<array-key, mixed>
     */
    private function ofArray(array $values, int $depth): array
    {
        if ($depth > self::MAX_DEPTH) {
            throw new Unshowable(self::TOO_DEEP);
        }
        $plain = [];
        try {
            foreach ($values as $key => $value) {
                if (is_object($value)) {
                    $value = $this->opened($value, $depth);
                }
                if (is_string($value) || is_bool($value)) {
                    $plain[$key] = $value;
                } elseif (is_int($value)) {
                    $plain[$key] = (string) $value;
                } elseif (is_array($value)) {
                    $plain[$key] = $this->ofArray($value, $depth + 1);
                } elseif ($value !== null || array_is_list($values)) {
                    $plain[$key] = $this->ofRare($value);
                } elseif ($this->keepsNull) {
                    $plain[$key] = null;
                }
            }
        } catch (Unshowable $unshowable) {
            throw $unshowable->under($key);
        }

        return $plain;
    }

    private function ofRare(mixed $value): mixed
    {
        return match (true) {
            is_float($value) => (string) ($value + 0.0),
            $value === null => '',
            $value instanceof Raw => $this->keepsNull ? $value : $value->data,
            default => throw new Unshowable('is a resource'),
        };
    }

    /** What stands for an object: no object any more, but for Raw. */
    private function opened(object $object, int $depth): mixed
    {
        return match (true) {
            $object instanceof Raw => $object,
            $object instanceof Closure => throw new Unshowable('is a Closure'),
            $object instanceof DateTimeInterface => $object->format(DATE_ATOM),
            $object instanceof BackedEnum => $object->value,
            $object instanceof UnitEnum => $object->name,
            $object instanceof Traversable => $this->elementsOf($object),
            $object instanceof JsonSerializable => $this->openedJson($object->jsonSerialize(), $depth + 1),
            $object instanceof Stringable => (string) $object,
            default => get_object_vars($object),
        };
    }

    private function openedJson(mixed $data, int $depth): mixed
    {
        if ($depth > self::MAX_DEPTH) {
            throw new Unshowable(self::TOO_DEEP);
        }

        return is_object($data) ? $this->opened($data, $depth) : $data;
    }

    /**
     * @param Traversable<mixed, mixed> $elements
     * @return array<array-key, mixed>
     */
    private function elementsOf(Traversable $elements): array
    {
        $array = [];
        foreach ($elements as $key => $element) {
            if (++$this->elements > self::MAX_ELEMENTS) {
                throw new Unshowable('has no end');
            }
            if ((is_int($key) || is_string($key)) && !array_key_exists($key, $array)) {
                $array[$key] = $element;
            } else {
                $array[] = $element;
            }
        }

        return $array;
    }
}
