<?php

declare(strict_types=1);

namespace Zorvel\Strict;

use Zorvel\Syntax\Tag;

/** A tag that silently comes to nothing with the data at hand. */
final readonly class Finding
{
    public function __construct(public string $template, public Tag $tag, public string $what) {}
}
