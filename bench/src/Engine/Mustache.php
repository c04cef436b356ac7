<?php

declare(strict_types=1);

namespace Zorvel\Bench\Engine;

use Mustache_Engine;
use Mustache_Loader_FilesystemLoader;
use Zorvel\Bench\Engine;

final class Mustache implements Engine
{
    public const ?string PACKAGE = 'mustache/mustache';
    public const string EXTENSION = 'mustache';

    private readonly Mustache_Engine $mustache;

    public function __construct(string $templates, string $compiled)
    {
        $this->mustache = new Mustache_Engine([
            'cache' => $compiled,
            'loader' => new Mustache_Loader_FilesystemLoader($templates),
            'helpers' => ['url' => rawurlencode(...)],
        ]);
    }

    public function render(string $template, array $data): string
    {
        return $this->mustache->render($template, $data);
    }

    public static function tag(string ...$keys): string
    {
        return '{{' . implode('.', $keys) . '}}';
    }

    public static function includeTag(string $template): string
    {
        return "{{> $template}}";
    }
}
