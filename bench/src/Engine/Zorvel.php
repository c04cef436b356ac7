<?php

declare(strict_types=1);

namespace Zorvel\Bench\Engine;

use RuntimeException;
use Zorvel\Bench\Engine;

class Zorvel implements Engine
{
    public const ?string PACKAGE = null;
    public const string EXTENSION = 'html';

    public function __construct(protected readonly string $templates, string $compiled)
    {
        set_include_path($templates);
    }

    public function render(string $template, array $data): string
    {
        return zorvel("$this->templates/$template.html", $data) ?? throw new RuntimeException("zorvel: $template");
    }

    public static function tag(string ...$keys): string
    {
        return '{' . implode('::', $keys) . '}';
    }

    public static function includeTag(string $template): string
    {
        return "{include $template.html}";
    }
}
