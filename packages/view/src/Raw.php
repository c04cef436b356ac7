<?php

declare(strict_types=1);

namespace Zorvel;

/**
 * Data that the view hands over as it is, for hot pages: `['rows' => new Raw($rows)]`. It is to consist of texts,
 * booleans and arrays of them; what else is in it the language treats in its own way, which for a number in a filter,
 * a reference in an array, an object or null is seldom what one expects.
 */
final readonly class Raw
{
    /** @param array<array-key, mixed> $data */
    public function __construct(public array $data) {}
}
