<?php

declare(strict_types=1);

namespace Zorvel\Tools;

final readonly class Finding
{
    /**
     * @param int $line from 1
     * @param int $column in characters, from 1
     * @param string $rule the name under which docs/lint.md tells about it
     */
    public function __construct(
        public string $file,
        public int $line,
        public int $column,
        public Level $level,
        public string $rule,
        public string $message,
    ) {}
}
