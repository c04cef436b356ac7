<?php

declare(strict_types=1);

final class Article
{
    /** @param list<string> $tags */
    public function __construct(
        public string $title,
        public string $slug,
        public DateTimeInterface $published,
        public ?DateTimeInterface $updated = null,
        public ?string $author = null,
        public string $text = '',
        public array $tags = [],
    ) {}
}
